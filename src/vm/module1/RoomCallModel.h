#pragma once

#include "common/RowModel.h"

#include <QList>

/// A service that can be called to a room.
struct call_struct
{
    QString id;
    QString name;
    int num = 0; ///< how many of it are wanted
};

/// The services of a room. An index out of range changes nothing.
class RoomCallModel : public RowModel<call_struct>
{
    Q_OBJECT

public:
    explicit RoomCallModel(QObject* parent = nullptr);

    QVector<call_struct> getAll() const { return rows(); }
    void upate(const QList<call_struct>& services) { refresh(QVector<call_struct>::fromList(services)); }
    Q_INVOKABLE void add(int index);
    /// Stops at 0.
    Q_INVOKABLE void sub(int index);
    void setNum(int index, int num);
};
