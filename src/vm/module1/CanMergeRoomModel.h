#pragma once

#include "common/RowModel.h"

#include <QList>

class CanMergeRoomVm;
struct temp_struct;

/// The groups of rooms that a room can be joined with; owns them.
class CanMergeRoomModel : public RowModel<CanMergeRoomVm*>
{
    Q_OBJECT

public:
    explicit CanMergeRoomModel(QObject* parent = nullptr);

    QVector<CanMergeRoomVm*> getAll() const { return rows(); }
    void clear();
    void addOne(const QString& name, const QString& key, const QList<temp_struct>& rooms);
};
