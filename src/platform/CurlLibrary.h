#pragma once

#include "platform/DynamicLibrary.h"

#define CURL_DISABLE_TYPECHECK
#include <curl/curl.h>

/// The HTTP library's entry points, bound at run time. Written once at start-up, read by the HTTP workers.
///
/// TLS sessions are kept between exchanges where the library offers it, so that a new connection to a known
/// server costs a short handshake. Connections themselves are never kept: a request that meets a dying one
/// would be sent twice.
class CurlLibrary
{
public:
    /// Loads the library, resolves every entry point and initialises it. False, with the reason in
    /// errorString(), when the library or one of its entry points is missing.
    bool load();
    /// Makes a handle take part in the kept TLS sessions. Any thread.
    void shareTlsSessions(CURL* handle) const;
    QString errorString() const { return m_error; }

    decltype(&::curl_global_init) curl_global_init = nullptr;
    decltype(&::curl_easy_init) curl_easy_init = nullptr;
    decltype(&::curl_easy_setopt) curl_easy_setopt = nullptr;
    decltype(&::curl_easy_perform) curl_easy_perform = nullptr;
    decltype(&::curl_easy_getinfo) curl_easy_getinfo = nullptr;
    decltype(&::curl_easy_cleanup) curl_easy_cleanup = nullptr;
    decltype(&::curl_slist_append) curl_slist_append = nullptr;
    decltype(&::curl_slist_free_all) curl_slist_free_all = nullptr;
    void (*curl_formadd)() = nullptr;  ///< looked up only, so that an odd build of the library is noticed early
    void (*curl_formfree)() = nullptr; ///< as above
    decltype(&::curl_global_cleanup) curl_global_cleanup = nullptr;

private:
    void prepareSharing();

    DynamicLibrary m_library;
    QString m_error;
    CURLSH* m_share = nullptr; ///< null where the library can't
};
