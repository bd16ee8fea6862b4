#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <unordered_map>
#include <utility>

namespace house {

/// Rows in the order in which they came, found by their member `id`. Nothing is ever taken out, so a pointer to
/// a row stays good as long as the table.
template <typename Row>
class Table
{
public:
    Row& add(Row row)
    {
        positions[row.id] = rows.size();
        rows.push_back(std::move(row));
        return rows.back();
    }

    /// Null when there is none.
    Row* find(const std::string& id)
    {
        const auto found = positions.find(id);
        return found == positions.end() ? nullptr : &rows[found->second];
    }
    const Row* find(const std::string& id) const { return const_cast<Table*>(this)->find(id); }

    /// The first row with this value, null also for an empty value.
    Row* findBy(std::string Row::*field, const std::string& value)
    {
        if (value.empty())
            return nullptr;
        for (Row& row : rows)
            if (row.*field == value)
                return &row;
        return nullptr;
    }
    const Row* findBy(std::string Row::*field, const std::string& value) const
    {
        return const_cast<Table*>(this)->findBy(field, value);
    }

    auto begin() { return rows.begin(); }
    auto end() { return rows.end(); }
    auto begin() const { return rows.begin(); }
    auto end() const { return rows.end(); }
    std::size_t size() const { return rows.size(); }

private:
    std::deque<Row> rows;
    std::unordered_map<std::string, std::size_t> positions;
};

} // namespace house
