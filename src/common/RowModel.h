#pragma once

#include <QAbstractListModel>
#include <QMutex>
#include <QVector>

#include <functional>
#include <vector>

/// List model over plain rows. A concrete model gives its role table and adds its own operations; the base
/// holds the rows and their mutex. Changed on the main thread; rows() may be read on any.
template <typename Row>
class RowModel : public QAbstractListModel
{
public:
    struct Role
    {
        QByteArray name;
        std::function<QVariant(const Row&)> read;
        std::function<bool(const Row&, const Row&)> differs; ///< empty: by comparing what read gives
    };

    /// A role that is a member of the row as it stands.
    template <typename Owner, typename Value>
    static Role field(const char* name, Value Owner::*member)
    {
        return {name, [member](const Row& row) { return QVariant::fromValue(row.*member); },
                [member](const Row& one, const Row& other) { return !(one.*member == other.*member); }};
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

    /// Puts other rows in place of all; the views start afresh.
    void replace(const QVector<Row>& rows)
    {
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

    void append(const Row& row)
    {
        const int at = rowCount();
        beginInsertRows({}, at, at);
        {
            QMutexLocker lock(&m_mutex);
            m_rows.append(row);
        }
        endInsertRows();
    }

    /// False, and nothing happens, when there is no such row.
    bool removeAt(int row)
    {
        if (!hasRow(row))
            return false;
        beginRemoveRows({}, row, row);
        {
            QMutexLocker lock(&m_mutex);
            m_rows.removeAt(row);
        }
        endRemoveRows();
        return true;
    }

    /// Changes one row by change(Row&); false, and nothing happens, when there is no such row.
    template <typename Change>
    bool changeAt(int row, Change change)
    {
        if (!hasRow(row))
            return false;
        QVector<Row> rows = this->rows();
        change(rows[row]);
        refresh(rows);
        return true;
    }

protected:
    /// The roles are numbered in their order, from firstRole on.
    RowModel(std::vector<Role> roles, QObject* parent, int firstRole = Qt::UserRole + 1)
        : QAbstractListModel(parent), m_roles(std::move(roles)), m_firstRole(firstRole)
    {
    }

    bool hasRow(int row) const { return row >= 0 && row < rowCount(); }

private:
    QVector<int> changedRoles(const QVector<Row>& before, const QVector<Row>& after) const
    {
        QVector<int> changed;
        for (size_t i = 0; i < m_roles.size(); ++i) {
            const Role& role = m_roles[i];
            for (int row = 0; row < after.size(); ++row) {
                if (role.differs ? role.differs(before.at(row), after.at(row))
                                 : role.read(before.at(row)) != role.read(after.at(row))) {
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

/// Rows of which one at a time, or none, is checked.
template <typename Row>
class CheckOneModel : public RowModel<Row>
{
public:
    /// Checks this row alone; false, and nothing happens, when there is no such row.
    bool checkOnly(int row)
    {
        if (!this->hasRow(row))
            return false;
        QVector<Row> rows = this->rows();
        for (int i = 0; i < rows.size(); ++i)
            rows[i].isChecked = i == row;
        this->refresh(rows);
        return true;
    }

    /// The index of the checked row, -1 without one.
    int checkedIndex() const
    {
        const QVector<Row> rows = this->rows();
        for (int i = 0; i < rows.size(); ++i) {
            if (rows.at(i).isChecked)
                return i;
        }
        return -1;
    }

protected:
    using RowModel<Row>::RowModel;
};
