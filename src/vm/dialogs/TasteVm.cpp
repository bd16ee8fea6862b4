#include "vm/dialogs/TasteVm.h"

#include "services/Bca01Service.h"

TasteSelModel::TasteSelModel(QObject* parent)
    : RowModel({field("tagName", &taste_struct::tagName), field("checked", &taste_struct::isChecked),
                field("tagId", &taste_struct::tagId)},
               parent)
{
}

void TasteSelModel::onChecked(int index, bool mulFlg)
{
    const bool wasChecked = row(index).isChecked;
    if (index < 0 || index >= rowCount())
        return;
    if (!wasChecked && !mulFlg)
        uncheckAll();
    changeAt(index, [&](taste_struct& choice) { choice.isChecked = !wasChecked; });
}

QStringList TasteSelModel::checkedIds() const
{
    QStringList ids;
    for (const taste_struct& choice : rows()) {
        if (choice.isChecked)
            ids.append(choice.tagId);
    }
    return ids;
}

TasteTagData::TasteTagData(const TasteTagDto& group)
    : m_name(group.name()), m_mulFlg(group.mulFlg() != 0), m_id(group.id()), m_choices(new TasteSelModel(this))
{
    QVector<taste_struct> choices;
    for (const TasteSelDto* choice : group.sels())
        choices.append({choice->name(), choice->id(), false});
    m_choices->replace(choices);
}

TasteTagModel::TasteTagModel(QObject* parent)
    : ObjectModel(
          {{"tagName", [](TasteTagData* const& group) { return group->name(); }},
           {"selModel", [](TasteTagData* const& group) { return QVariant::fromValue(group->selModel()); }},
           {"tagId", [](TasteTagData* const& group) { return group->tagId(); }},
           {"mulFlg", [](TasteTagData* const& group) { return group->mulFlg(); }}},
          parent)
{
}

void TasteTagModel::update(const Array<TasteTagDto*>& groups)
{
    QVector<TasteTagData*> made;
    for (const TasteTagDto* group : groups)
        made.append(new TasteTagData(*group));
    replaceAll(made);
}

void TasteVm::getTasteApi(const QString& itemId)
{
    fetch(&Bca01Service::getTagList, {{"itemId", itemId}}, [this](const GetTagList& reply) {
        if (reply.data())
            m_groups->update(reply.data()->tagList());
    });
}

QStringList TasteVm::getCheckedSel() const
{
    QStringList ids;
    for (const TasteTagData* group : m_groups->rows())
        ids += group->selModel()->checkedIds();
    return ids;
}

bool TasteVm::isChosen() const { return require(!getCheckedSel().isEmpty(), "请选择需要的做法或口味"); }
