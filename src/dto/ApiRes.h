#pragma once

#include "serialization/Record.h"

/// What every reply of the back end carries. The wrapper of a call adds one property `data`.
///
/// `code` and `msg` come from the envelope, the three authoriser fields from the supervisor's dialog; none of
/// them is read from the payload. The caller of a service owns the reply and ends it with deleteLater.
class ApiRes : public QObject
{
    Q_OBJECT
    RECORD(ApiRes)
    RECORD_FIELD_AS(QString, code, code, setCode)             // "200" for success, anything else is a failure
    RECORD_FIELD_AS(QString, msg, msg, setMsg)                // text for the user
    RECORD_FIELD_AS(QString, authId, authId, setAuthId)       // supervisor who authorised the call, else empty
    RECORD_FIELD_AS(QString, authNo, authNo, setAuthNo)       // his number
    RECORD_FIELD_AS(QString, authName, authName, setAuthName) // his name
};
