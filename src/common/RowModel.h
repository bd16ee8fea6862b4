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
        int id;
        QByteArray name;
        std::function<QVariant(const Row&)> read;
    };

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
        if (!index.isValid() || index.row() >= m_rows.size())
            return {};
        for (const Role& known : m_roles) {
            if (known.id == role)
                return known.read(m_rows.at(index.row()));
        }
        return {};
    }

    QHash<int, QByteArray> roleNames() const override
    {
        QHash<int, QByteArray> names;
        for (const Role& role : m_roles)
            names.insert(role.id, role.name);
        return names;
    }

    /// A copy of the rows.
    QVector<Row> rows() const
    {
        QMutexLocker lock(&m_mutex);
        return m_rows;
    }

    /// Puts other rows in place of all.
    void replace(const QVector<Row>& rows)
    {
        beginResetModel();
        {
            QMutexLocker lock(&m_mutex);
            m_rows = rows;
        }
        endResetModel();
    }

protected:
    RowModel(std::vector<Role> roles, QObject* parent) : QAbstractListModel(parent), m_roles(std::move(roles))
    {
    }

private:
    const std::vector<Role> m_roles;
    mutable QMutex m_mutex;
    QVector<Row> m_rows;
};
