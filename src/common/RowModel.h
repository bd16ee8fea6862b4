#pragma once

#include "common/Property.h"

#include <QAbstractListModel>
#include <QMutex>
#include <QVector>

#include <functional>
#include <type_traits>
#include <vector>

/// What a page may do with a list whatever its rows are. An index out of range gives false and changes nothing.
class ListModel : public QAbstractListModel
{
    Q_OBJECT
    PROPERTY(bool, isLoaded, setIsLoaded, false) // rows, or that there are none, are known

public:
    using QAbstractListModel::QAbstractListModel;

    /// Marks this row alone, in a list of which one is chosen.
    Q_INVOKABLE virtual bool onChecked(int index) = 0;
    /// Chooses the row or takes the choice back, in a list of which several may be chosen.
    Q_INVOKABLE virtual bool onSelected(int index) = 0;
};

/// List model over plain rows. It is given its role table, by a concrete model or by whoever makes it; the base
/// holds the rows and their mutex. Changed on the main thread; rows() may be read on any.
///
/// A row with a member isChecked can be checked, one with isSelected can be selected.
template <typename Row>
class RowModel : public ListModel
{
public:
    struct Role
    {
        using Read = std::function<QVariant(const Row&)>;
        using Differs = std::function<bool(const Row&, const Row&)>;

        Role(const char* name, Read read, Differs differs = nullptr)
            : name(name), read(std::move(read)), differs(std::move(differs))
        {
        }

        QByteArray name;
        Read read;
        Differs differs; ///< empty: by comparing what read gives
    };

    /// A role that is a member of the row as it stands.
    template <typename Owner, typename Value>
    static Role field(const char* name, Value Owner::*member)
    {
        return {name, [member](const Row& row) { return QVariant::fromValue(row.*member); },
                [member](const Row& one, const Row& other) { return !(one.*member == other.*member); }};
    }

    /// The roles are numbered in their order, from firstRole on.
    explicit RowModel(std::vector<Role> roles, QObject* parent = nullptr, int firstRole = Qt::UserRole + 1)
        : ListModel(parent), m_roles(std::move(roles)), m_firstRole(firstRole)
    {
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        if (parent.isValid())
            return 0;
        QMutexLocker lock(&m_mutex);
        return m_rows.size();
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        QMutexLocker lock(&m_mutex);
        const int known = role - m_firstRole;
        if (!index.isValid() || index.row() >= m_rows.size() || known < 0 ||
            known >= static_cast<int>(m_roles.size()))
            return {};
        return m_roles[static_cast<size_t>(known)].read(m_rows.at(index.row()));
    }

    QHash<int, QByteArray> roleNames() const override
    {
        QHash<int, QByteArray> names;
        for (size_t i = 0; i < m_roles.size(); ++i)
            names.insert(m_firstRole + static_cast<int>(i), m_roles[i].name);
        return names;
    }

    /// A copy of the rows.
    QVector<Row> rows() const
    {
        QMutexLocker lock(&m_mutex);
        return m_rows;
    }
    QVector<Row> getAll() const { return rows(); }

    /// A copy of one row; a fresh one when there is no such row.
    Row row(int index) const
    {
        QMutexLocker lock(&m_mutex);
        return m_rows.value(index);
    }

    /// The first row for which fits(row) is true, -1 without one.
    template <typename Fits>
    int find(Fits fits) const
    {
        QMutexLocker lock(&m_mutex);
        for (int i = 0; i < m_rows.size(); ++i) {
            if (fits(m_rows.at(i)))
                return i;
        }
        return -1;
    }

    /// The index of the checked row, -1 without one.
    int checkedIndex() const
    {
        return find([](const Row& row) { return row.isChecked; });
    }

    /// Puts other rows in place of all; the views start afresh.
    void replace(const QVector<Row>& rows)
    {
        setIsLoaded(true);
        beginResetModel();
        {
            QMutexLocker lock(&m_mutex);
            m_rows = rows;
        }
        endResetModel();
    }

    /// Puts as many other rows in place of the present ones without a reset: views keep their items and their
    /// position, and are told once, for all rows, which roles have changed. With another number of rows it is
    /// a replace().
    void refresh(const QVector<Row>& rows)
    {
        if (rows.isEmpty() || rows.size() != rowCount()) {
            replace(rows);
            return;
        }
        QVector<int> changed;
        {
            QMutexLocker lock(&m_mutex);
            changed = changedRoles(m_rows, rows);
            m_rows = rows;
        }
        if (!changed.isEmpty())
            Q_EMIT dataChanged(index(0), index(rows.size() - 1), changed);
    }

    void append(const Row& row) { insertAt(rowCount(), row); }

    /// The place must be within the list or its end.
    void insertAt(int at, const Row& row)
    {
        beginInsertRows({}, at, at);
        {
            QMutexLocker lock(&m_mutex);
            m_rows.insert(at, row);
        }
        endInsertRows();
    }

    /// False, and nothing happens, when there is no such row.
    bool removeAt(int row)
    {
        if (row < 0 || row >= rowCount())
            return false;
        beginRemoveRows({}, row, row);
        {
            QMutexLocker lock(&m_mutex);
            m_rows.removeAt(row);
        }
        endRemoveRows();
        return true;
    }

    /// Changes one row by change(Row&), which no other row is touched for; false, and nothing happens, when
    /// there is no such row.
    template <typename Change>
    bool changeAt(int row, Change change)
    {
        QVector<int> changed;
        {
            QMutexLocker lock(&m_mutex);
            if (row < 0 || row >= m_rows.size())
                return false;
            const Row before = m_rows.at(row);
            change(m_rows[row]);
            changed = changedRoles(before, m_rows.at(row));
        }
        if (!changed.isEmpty())
            Q_EMIT dataChanged(index(row), index(row), changed);
        return true;
    }

    bool onChecked(int index) override
    {
        if constexpr (HasChecked<Row>::value) {
            if (index >= 0 && index < rowCount())
                uncheckAll(index);
            return changeAt(index, [](Row& row) { row.isChecked = true; });
        }
        Q_UNUSED(index)
        return false;
    }

    bool onSelected(int index) override
    {
        if constexpr (HasSelected<Row>::value)
            return changeAt(index, [](Row& row) { row.isSelected = !row.isSelected; });
        Q_UNUSED(index)
        return false;
    }

    /// Leaves no row checked, but for the one that is to keep its mark.
    void uncheckAll(int but = -1)
    {
        const auto nextChecked = [this, but] {
            int at = -1;
            return find([&](const Row& row) { return ++at != but && row.isChecked; });
        };
        for (int row = nextChecked(); row >= 0; row = nextChecked())
            changeAt(row, [](Row& changed) { changed.isChecked = false; });
    }

private:
    template <typename T, typename = void>
    struct HasChecked : std::false_type
    {
    };
    template <typename T>
    struct HasChecked<T, std::void_t<decltype(std::declval<T&>().isChecked)>> : std::true_type
    {
    };
    template <typename T, typename = void>
    struct HasSelected : std::false_type
    {
    };
    template <typename T>
    struct HasSelected<T, std::void_t<decltype(std::declval<T&>().isSelected)>> : std::true_type
    {
    };

    static bool isChanged(const Role& role, const Row& before, const Row& after)
    {
        return role.differs ? role.differs(before, after) : role.read(before) != role.read(after);
    }

    QVector<int> changedRoles(const Row& before, const Row& after) const
    {
        QVector<int> changed;
        for (size_t i = 0; i < m_roles.size(); ++i) {
            if (isChanged(m_roles[i], before, after))
                changed.append(m_firstRole + static_cast<int>(i));
        }
        return changed;
    }

    QVector<int> changedRoles(const QVector<Row>& before, const QVector<Row>& after) const
    {
        QVector<int> changed;
        for (size_t i = 0; i < m_roles.size(); ++i) {
            for (int row = 0; row < after.size(); ++row) {
                if (isChanged(m_roles[i], before.at(row), after.at(row))) {
                    changed.append(m_firstRole + static_cast<int>(i));
                    break;
                }
            }
        }
        return changed;
    }

    const std::vector<Role> m_roles;
    const int m_firstRole;
    mutable QMutex m_mutex;
    QVector<Row> m_rows;
};

/// A list whose rows are objects of its own, such as a group with a list inside. Those that are replaced go at
/// the next turn of the event loop, so that views have moved on.
template <typename Object>
class ObjectModel : public RowModel<Object*>
{
public:
    using RowModel<Object*>::RowModel;

    /// Owns the objects from here on.
    void replaceAll(const QVector<Object*>& objects)
    {
        const QVector<Object*> old = this->rows();
        for (Object* object : objects)
            object->setParent(this);
        this->replace(objects);
        for (Object* object : old)
            object->deleteLater();
    }
};
