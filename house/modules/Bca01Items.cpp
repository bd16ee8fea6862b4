#include "src/Asked.h"
#include "src/Unread.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace house {
namespace {

using nlohmann::json;

const std::string& areaAsked(const House& house, const Call& call)
{
    const WorkArea* area = house.seed.area(call.text("selAreaId"));
    demand(area, "ITEM_ERR_0001", "营业区域不存在");
    return area->id;
}

Reply getTypeList(House& house, const Call& call)
{
    const std::string& areaId = areaAsked(house, call);
    std::set<std::string> sold;
    for (const Item& item : house.state.items)
        if (isSoldIn(item, areaId))
            sold.insert(item.typeId);
    json list = json::array();
    for (const Category& category : house.state.categories)
        if (sold.count(category.id) > 0)
            list.push_back({{"name", category.name}, {"id", category.id}});
    return Reply::with({{"typeList", list}});
}

json itemRecord(const Item& item)
{
    return withUnread({{"id", item.id},
                       {"name", item.name},
                       {"price", item.price},
                       {"pic_path", item.picture},
                       {"server_type", static_cast<int>(item.kind)},
                       {"is_desk_no", item.needsDesk ? 1 : 0},
                       {"tagId", item.tagId},
                       {"sell_flg", item.sellFlg},
                       {"is_pack_ticket", item.isPackTicket},
                       {"unit", item.unit},
                       {"worker_type", item.workerType},
                       {"times", item.minutes}},
                      {"typeId"}, {"spec"});
}

Reply getItemList(House& house, const Call& call)
{
    const std::string& areaId = areaAsked(house, call);
    const std::string typeId = call.text("typeId");
    const std::string barCode = call.text("barCode");
    std::string initials = call.text("plucode");
    std::transform(initials.begin(), initials.end(), initials.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    json list = json::array();
    for (const Item& item : house.state.items)
        if (isSoldIn(item, areaId) && (typeId.empty() || item.typeId == typeId) &&
            (barCode.empty() || item.barCode == barCode) && item.initials.find(initials) != std::string::npos)
            list.push_back(itemRecord(item));
    return Reply::with({{"itemList", list}});
}

Reply getTagList(House& house, const Call& call)
{
    const Item& item = itemOfId(house, call.text("itemId"));
    json list = json::array();
    for (const TasteGroup& group : house.state.tastes) {
        if (group.tagId != item.tagId)
            continue;
        json choices = json::array();
        for (const TasteChoice& choice : group.choices)
            choices.push_back({{"name", choice.name}, {"id", choice.id}});
        list.push_back(withUnread(
            {{"name", group.name}, {"mulFlg", group.isMultiple ? 1 : 0}, {"sels", choices}}, {"id"}));
    }
    return Reply::with({{"tagList", list}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getTypeList", "selAreaId", getTypeList);
    table.get("/bca01/getItemList", "selAreaId typeId? plucode? barCode?", getItemList);
    table.get("/bca01/getTagList", "itemId", getTagList);
});

} // namespace
} // namespace house
