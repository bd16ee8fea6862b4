#pragma once

#include "common/RowModel.h"
#include "dto/sales/TasteRecords.h"
#include "vm/shared/ActionVm.h"

#include <QStringList>

/// One way to prepare an item.
struct taste_struct
{
    QString tagName;
    QString tagId;
    bool isChecked = false;
};

/// The choices of a group.
class TasteSelModel : public RowModel<taste_struct>
{
    Q_OBJECT

public:
    explicit TasteSelModel(QObject* parent = nullptr);

    /// Takes the choice or gives it up; unless several may be taken, those of before are given up.
    Q_INVOKABLE void onChecked(int index, bool mulFlg);
    using RowModel::onChecked;
    QStringList checkedIds() const;
};

/// A group of choices.
class TasteTagData : public QObject
{
    Q_OBJECT
    PROPERTY(QString, name, setName, {})
    PROPERTY(bool, mulFlg, setMulFlg, false) // several may be taken
    CONSTANT_PROPERTY(TasteSelModel*, selModel, m_choices)

public:
    explicit TasteTagData(const TasteTagDto& group);

    QString tagId() const { return m_id; }

private:
    QString m_id;
    TasteSelModel* m_choices;
};

class TasteTagModel : public ObjectModel<TasteTagData>
{
    Q_OBJECT

public:
    explicit TasteTagModel(QObject* parent = nullptr);

    void update(const Array<TasteTagDto*>& groups);
};

/// How an item is to be prepared.
class TasteVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(TasteTagModel*, tasteTagModel, m_groups)

public:
    explicit TasteVm(QObject* parent = nullptr) : ActionVm(parent), m_groups(new TasteTagModel(this)) {}

    /// Loads the groups of an item.
    Q_INVOKABLE void getTasteApi(const QString& itemId);
    /// The ids of what is chosen, group by group.
    Q_INVOKABLE QStringList getCheckedSel() const;
    /// Whether anything is chosen; if not, the user is told.
    Q_INVOKABLE bool isChosen() const;

private:
    TasteTagModel* m_groups;
};
