#include "platform/CurlLibrary.h"

bool CurlLibrary::load()
{
#ifdef Q_OS_WIN
    const bool loaded = m_library.load({QStringLiteral("libcurl.dll")});
#else
    const bool loaded = m_library.load({QStringLiteral("curl")}, 4);
#endif
    if (!loaded) {
        m_error = m_library.errorString();
        return false;
    }

#define RESOLVE(name)                                                                                                  \
    if (!m_library.resolve(name, #name)) {                                                                             \
        m_error = QStringLiteral("no entry point " #name);                                                             \
        return false;                                                                                                  \
    }
    RESOLVE(curl_global_init)
    RESOLVE(curl_easy_init)
    RESOLVE(curl_easy_setopt)
    RESOLVE(curl_easy_perform)
    RESOLVE(curl_easy_getinfo)
    RESOLVE(curl_easy_cleanup)
    RESOLVE(curl_slist_append)
    RESOLVE(curl_slist_free_all)
    RESOLVE(curl_formadd)
    RESOLVE(curl_formfree)
    RESOLVE(curl_global_cleanup)
#undef RESOLVE

    if (curl_global_init(CURL_GLOBAL_ALL) != CURLE_OK) {
        m_error = QStringLiteral("curl_global_init failed");
        return false;
    }
    return true;
}
