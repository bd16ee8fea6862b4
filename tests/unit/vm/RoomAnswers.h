#pragma once

// What the house answers to the room pages, and what the pages make of it.

#include "RoomFixture.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"

#include <QAbstractItemModel>
#include <QJsonArray>
#include <QPointer>
#include <QTimer>

inline const QString cardPath = QStringLiteral("/baa01/getHardCardDetail");
inline const QString detailPath = QStringLiteral("/bba01/getRoomDetailNew");
inline const QString plansPath = QStringLiteral("/bba01/getPlanListNew");
inline const QString roomsPath = QStringLiteral("/bba01/getRoomList");
inline const QString emptyRoomsPath = QStringLiteral("/bba01/getEmptyRoomList");
inline const QString candidatesPath = QStringLiteral("/bba01/getCanMergeRoomList");
inline const QString kindsPath = QStringLiteral("/bba01/getOccTypeList");
inline const QString done = QStringLiteral("success|操作成功");

inline SysConfigDto& store() { return *GlobalConfig::getInstance()->sysConfig(); }

inline QString elsewhere(const QString& number, const QString& roomNo)
{
    return QStringLiteral("question|提示|当前手牌[%1] 已在【%2】房间, 是否继续当前操作]???")
        .arg(number, roomNo);
}

/// Objects with an id and another text.
inline QJsonArray listOf(const QStringList& ids, const QString& nameField)
{
    QJsonArray list;
    for (const QString& id : ids)
        list.append(QJsonObject{{"id", id}, {nameField, "%1 of " + id}});
    return list;
}
inline QJsonArray rooms(const QStringList& ids) { return listOf(ids, "vals"); }
inline QJsonArray plans(const QStringList& ids) { return listOf(ids, "name"); }

/// What a page's list shows in this role, the checked row with a star.
inline QString listed(const QObject* page, const char* list, const char* role)
{
    const auto* model = page->property(list).value<QAbstractItemModel*>();
    const auto value = [&](int row, const char* name) {
        return model->data(model->index(row, 0), model->roleNames().key(name));
    };
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(value(row, role).toString() + (value(row, "isChecked").toBool() ? "*" : ""));
    return rows.join(' ');
}
