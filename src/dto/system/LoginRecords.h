#pragma once

#include "dto/ApiRes.h"

/// A staff member.
class UserDto : public QObject
{
    Q_OBJECT
    RECORD(UserDto)
    RECORD_FIELD(QString, staffId)     // sent as operator and creater
    RECORD_FIELD(QString, name)        // name
    RECORD_FIELD(QString, code)        // staff number
    RECORD_FIELD(QString, workerTypes) // types of worker that he is, matched against an item's type
    RECORD_REFRESH(UserDto, update)    // keeps the object, so that bindings stay alive across logins
};

/// A work area of a staff member.
class WorkAreaDto : public QObject
{
    Q_OBJECT
    RECORD(WorkAreaDto)
    RECORD_FIELD(QString, areaId)   // area
    RECORD_FIELD(QString, areaName) // its name
    RECORD_FIELD(QString, id)       // row
};
RECORD_LIST(WorkAreaDto)

/// A login's session.
class LoginDto : public QObject
{
    Q_OBJECT
    RECORD(LoginDto)
    RECORD_FIELD(QString, secret)                   // signs the session's calls
    RECORD_FIELD(QString, token)                    // names the session
    RECORD_FIELD(long, timestamp)                   // lifetime of the token in seconds, not a date
    RECORD_FIELD(UserDto*, userInfo)                // the person logged in
    RECORD_FIELD(Array<WorkAreaDto*>, workarealist) // his work areas
};

class LoginMod : public ApiRes
{
    Q_OBJECT
    RECORD_ON(LoginMod, ApiRes)
    RECORD_FIELD(LoginDto*, data)
};

/// The back end's answer for one right.
class AuthInfoDto : public QObject
{
    Q_OBJECT
    RECORD(AuthInfoDto)
    RECORD_FIELD(bool, isHave)    // the person holds the right
    RECORD_FIELD(bool, isGranted) // not read by the terminal
};
RECORD_DICTIONARY(AuthInfoDto)

class GetAuthInfoByCode : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetAuthInfoByCode, ApiRes)
    RECORD_FIELD(Dictionary<AuthInfoDto*>, data) // by the right's id
};
