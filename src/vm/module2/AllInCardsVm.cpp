#include "vm/module2/AllInCardsVm.h"

#include "services/Baa01Service.h"
#include "vm/shared/OrderLines.h"

namespace {

constexpr int inUse = 1;
constexpr int male = 1;
constexpr int female = 0;
constexpr int lastYearCut = 2030;

} // namespace

HandCardItemModel::HandCardItemModel(QObject* parent)
    : RowModel({field("cardNo", &hand_card_item_struct::cardNo),
                field("createTime", &hand_card_item_struct::createTime),
                field("remark", &hand_card_item_struct::remark),
                field("amount", &hand_card_item_struct::amount)},
               parent)
{
}

AllInCardsVm::AllInCardsVm(QObject* parent)
    : ActionVm(parent), m_men(new HandCardItemModel(this)), m_women(new HandCardItemModel(this))
{
}

void AllInCardsVm::query()
{
    QJsonObject asked{{"status", inUse}};
    if (!isSortCardNo())
        asked.insert("usedCardSort", 1);
    fetch(&Baa01Service::getHandCardList, asked, [this](const GetHandCardList& reply) {
        QVector<hand_card_item_struct> men;
        QVector<hand_card_item_struct> women;
        int total = 0;
        if (reply.data()) {
            for (const HandCardDto* card : reply.data()->list()) {
                ++total;
                if (card->sex() != male && card->sex() != female)
                    continue;
                (card->sex() == male ? men : women)
                    .append({card->cardno(), withoutYear(card->createtime(), lastYearCut), card->remark(),
                             card->amount()});
            }
        }
        m_men->replace(men);
        m_women->replace(women);
        setTotalInfo(QStringLiteral("合计: %1  男: %2  女: %3").arg(total).arg(men.size()).arg(women.size()));
    });
}
