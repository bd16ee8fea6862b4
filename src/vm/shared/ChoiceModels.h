#pragma once

#include "common/RowModel.h"

// Lists of which the user takes one entry, or several. An index out of range changes nothing.

/// Colours of an entry that isn't the checked one, and of the one that is.
QString uncheckedBackColor();
QString uncheckedForeColor();
QString checkedBackColor();
QString checkedForeColor();

/// A list of which one entry is checked, which shows by its colours: the roles that the entries have of their
/// own, then backColor, foreColor and isChecked.
template <typename Entry>
class ChoiceModel : public RowModel<Entry>
{
public:
    using Role = typename RowModel<Entry>::Role;

    explicit ChoiceModel(std::vector<Role> own, QObject* parent = nullptr)
        : RowModel<Entry>(withChoice(std::move(own)), parent)
    {
    }

    void clear() { this->replace({}); }

private:
    static std::vector<Role> withChoice(std::vector<Role> roles)
    {
        roles.push_back({"backColor", [](const Entry& entry) {
                             return entry.isChecked ? checkedBackColor() : uncheckedBackColor();
                         }});
        roles.push_back({"foreColor", [](const Entry& entry) {
                             return entry.isChecked ? checkedForeColor() : uncheckedForeColor();
                         }});
        roles.push_back(RowModel<Entry>::field("isChecked", &Entry::isChecked));
        return roles;
    }
};

/// An entry of a list that needs no more than an id and a text, such as a room to move to.
struct temp_struct
{
    QString tempId;
    QString tempName;
    bool isChecked = false;
    bool isSelected = false;
};

class TempDataModel : public ChoiceModel<temp_struct>
{
    Q_OBJECT

public:
    explicit TempDataModel(QObject* parent = nullptr)
        : ChoiceModel({field("tempId", &temp_struct::tempId), field("tempName", &temp_struct::tempName),
                       field("isSelected", &temp_struct::isSelected)},
                      parent)
    {
    }

    /// Entries of another question; the view shows them from the first one on.
    void upate(const QList<temp_struct>& entries) { replace(QVector<temp_struct>::fromList(entries)); }
    /// The entry's id, empty when there is no such entry.
    QString getIndexId(int index) const { return row(index).tempId; }
    /// The checked entry's id, empty without one.
    QString checkedId() const { return getIndexId(checkedIndex()); }
};
