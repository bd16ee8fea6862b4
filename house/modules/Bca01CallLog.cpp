#include "src/Asked.h"
#include "src/Unread.h"

namespace house {
namespace {

using nlohmann::json;

json recordOf(House& house, const PassRecord& passed)
{
    const Card& card = cardOfId(house, passed.cardId);
    return withUnread({{"hardCardNo", card.number},
                       {"hardCardTypeName", house.state.cardTypes.find(card.type)->name},
                       {"statusVal", wordOf(passed.status)},
                       {"callNum", passed.callNum},
                       {"operatorCode", staffOfId(house, passed.staffId).code},
                       {"createTime", timeText(passed.at)},
                       {"hardCardId", card.id}},
                      {"operatorName"});
}

Reply getHelpCallBashApiLogPageList(House& house, const Call& call)
{
    const Seconds from = timeOf(call.text("startTime"));
    const Seconds to = timeOf(call.text("endTime"));
    demand(from != 0 && from <= to, "CALL_ERR_0002", "查询时间不正确");
    const std::size_t limit = positive(call, "limit");
    const std::size_t page = positive(call, "page");

    json list = json::array();
    std::size_t total = 0;
    const std::vector<PassRecord>& records = house.state.calls.passRecords();
    // The latest first.
    for (auto record = records.rbegin(); record != records.rend(); ++record) {
        if (record->at < from || record->at > to)
            continue;
        if (total / limit == page - 1)
            list.push_back(recordOf(house, *record));
        ++total;
    }
    return Reply::with({{"total", total}, {"list", list}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getHelpCallBashApiLogPageList", "startTime endTime", getHelpCallBashApiLogPageList)
        .query({"limit", "page"})
        .withoutOperator();
});

} // namespace
} // namespace house
