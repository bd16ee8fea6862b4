#include "src/Lookup.h"
#include "src/Text.h"

namespace house {
namespace {

using nlohmann::json;

json recordOf(House& house, const PassRecord& passed)
{
    const Card& card = cardAsked(house, passed.cardId);
    const Staff& person = staffOfId(house, passed.staffId);
    return {
        {"hardCardNo", card.number},          {"hardCardTypeName", house.state.cardTypes.find(card.type)->name},
        {"statusVal", wordOf(passed.status)}, {"callNum", passed.callNum},
        {"operatorCode", person.code},        {"operatorName", person.name},
        {"createTime", timeText(passed.at)},  {"hardCardId", card.id}};
}

Reply getHelpCallBashApiLogPageList(House& house, const Call& call)
{
    const Seconds from = timeOf(call.text("startTime"));
    const Seconds to = timeOf(call.text("endTime"));
    const auto page = decimal(call.params.at("page"));
    const auto limit = decimal(call.params.at("limit"));
    if (from == 0 || to == 0 || from > to)
        refuse("CALL_ERR_0002", "查询时间不正确");
    if (!page || !limit || *page < 1 || *limit < 1)
        refuse("CALL_ERR_0002", "分页参数不正确");

    json list = json::array();
    long long total = 0;
    const std::vector<PassRecord>& records = house.state.calls.passRecords();
    // The latest first.
    for (auto record = records.rbegin(); record != records.rend(); ++record) {
        if (record->at < from || record->at > to)
            continue;
        if (total / *limit == *page - 1)
            list.push_back(recordOf(house, *record));
        ++total;
    }
    return Reply::with({{"total", total}, {"list", list}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getHelpCallBashApiLogPageList", asked(getHelpCallBashApiLogPageList))
        .query({"limit", "page"})
        .withoutOperator()
        .needs("startTime", Kind::Text)
        .needs("endTime", Kind::Text);
});

} // namespace
} // namespace house
