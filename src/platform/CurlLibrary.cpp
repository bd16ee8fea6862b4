#include "platform/CurlLibrary.h"

#include <mutex>

namespace {

/// The library locks what its handles share by these, one for each kind of data.
std::mutex shareMutexes[CURL_LOCK_DATA_LAST];

void lockShare(CURL*, curl_lock_data data, curl_lock_access, void*) { shareMutexes[data].lock(); }

void unlockShare(CURL*, curl_lock_data data, void*) { shareMutexes[data].unlock(); }

} // namespace

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

#define RESOLVE(name)                                                                                          \
    if (!m_library.resolve(name, #name)) {                                                                     \
        m_error = QStringLiteral("no entry point " #name);                                                     \
        return false;                                                                                          \
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
    prepareSharing();
    return true;
}

void CurlLibrary::prepareSharing()
{
    decltype(&::curl_share_init) share_init = nullptr;
    decltype(&::curl_share_setopt) share_setopt = nullptr;
    if (!m_library.resolve(share_init, "curl_share_init") ||
        !m_library.resolve(share_setopt, "curl_share_setopt"))
        return;
    CURLSH* share = share_init();
    if (!share)
        return;
    share_setopt(share, CURLSHOPT_LOCKFUNC, &lockShare);
    share_setopt(share, CURLSHOPT_UNLOCKFUNC, &unlockShare);
    if (share_setopt(share, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION) == CURLSHE_OK)
        m_share = share;
}

void CurlLibrary::shareTlsSessions(CURL* handle) const
{
    if (m_share)
        curl_easy_setopt(handle, CURLOPT_SHARE, m_share);
}
