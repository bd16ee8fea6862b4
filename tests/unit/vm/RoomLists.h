#pragma once

#include "vm/module1/RoomLookups.h"

#include <QJsonArray>
#include <QJsonObject>

// The lists of the room pages: as the house answers them, and what the pages make of them.

inline QJsonArray listOf(const QStringList& ids, const QString& nameField)
{
    QJsonArray list;
    for (const QString& id : ids)
        list.append(QJsonObject{{"id", id}, {nameField, "%1 of " + id}});
    return list;
}
inline QJsonArray rooms(const QStringList& ids) { return listOf(ids, "vals"); }
inline QJsonArray plans(const QStringList& ids) { return listOf(ids, "name"); }

/// What a list shows, the checked row with a star.
inline QString listed(const QAbstractItemModel* model, const char* role)
{
    const auto value = [&](int row, const char* name) {
        return model->data(model->index(row, 0), model->roleNames().key(name));
    };
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(value(row, role).toString() + (value(row, "isChecked").toBool() ? "*" : ""));
    return rows.join(' ');
}
inline QString listed(const TempDataModel* model) { return listed(model, "tempId"); }
inline QString listed(const PlanListModel* model) { return listed(model, "planId"); }
inline QString listed(const CardListModel* model) { return listed(model, "cardNo"); }
