#pragma once

#include "net/BaseRequest.h"

/// A call as it goes over the wire.
struct RequestText
{
    QString url;    ///< whole, with query and signature
    QString logUrl; ///< for the log: the JSON readable, without further parameters and signature
    QString body;   ///< form text of a POST
    QString json;   ///< compact, what is signed
};

/// Whole seconds since the Unix epoch, as decimal text.
QString requestTimestamp();

/// The signed text of an ordinary call: common fields, the call's data over them, the line in use.
RequestText signedRequestText(const BaseRequest& request, const QString& ts, const QString& nonce);

/// The text of the line fetch, for one endpoint: unsigned and without the operator.
RequestText lineRequestText(const QString& baseUrl, const BaseRequest& request, const QString& ts,
                            const QString& nonce);

/// Signature of a call: MD5, lower-case hexadecimal, of the five texts without separator, with every double
/// quote replaced by a single one.
QString requestSignature(const QString& token, const QString& ts, const QString& nonce, const QString& json,
                         const QString& secret);
