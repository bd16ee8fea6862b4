#pragma once

#include "serialization/Record.h"

/// A record with a field of each kind.
class LeafRecord : public QObject
{
    Q_OBJECT
    RECORD(LeafRecord)
    RECORD_REFRESH(LeafRecord, refresh)
    RECORD_FIELD(QString, text)
    RECORD_FIELD(int, number)
    RECORD_FIELD(qlonglong, big)
    RECORD_FIELD(double, real)
    RECORD_FIELD(bool, flag)
    RECORD_FIELD(long, lifetime)
};
RECORD_LIST(LeafRecord)
RECORD_DICTIONARY(LeafRecord)

class TreeRecord : public QObject
{
    Q_OBJECT
    RECORD(TreeRecord)
    RECORD_FIELD(QString, name)
    RECORD_FIELD(LeafRecord*, leaf)
    RECORD_FIELD(Array<LeafRecord*>, leaves)
    RECORD_FIELD(Dictionary<LeafRecord*>, byKey)
};

/// Its own field stands on top of those that it inherits.
class DerivedRecord : public LeafRecord
{
    Q_OBJECT
    RECORD_ON(DerivedRecord, LeafRecord)
    RECORD_FIELD(QString, own)
};

/// No factory can make it.
class UnmakeableRecord : public QObject
{
    Q_OBJECT

public:
    explicit UnmakeableRecord(int) {}
    explicit UnmakeableRecord(UnmakeableRecord*) {}
};
RECORD_LIST(UnmakeableRecord)

struct UnknownType
{
    bool operator==(const UnknownType&) const { return true; }
};

class OddRecord : public QObject
{
    Q_OBJECT
    RECORD(OddRecord)
    RECORD_FIELD(UnmakeableRecord*, unmakeable)
    RECORD_FIELD(Array<UnmakeableRecord*>, unmakeables)
    RECORD_FIELD(UnknownType, unknown)
    RECORD_FIELD(QString, after)
};
