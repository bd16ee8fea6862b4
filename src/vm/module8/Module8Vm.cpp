#include "vm/module8/Module8Vm.h"

#include "common/WaitStack.h"
#include "print/PosPrint.h"
#include "services/Bca01Service.h"
#include "vm/shared/SlipStamp.h"
#include "vm/shared/TapWatch.h"

#include <limits>
#include <utility>

namespace {

constexpr int mealPollMs = 10000;
constexpr int mealPutOffMs = 500;
constexpr int mealQuietMs = 300;
constexpr int childMs = 30000;
constexpr int mostChildren = 99;

constexpr CounterWords mealWords{"请用餐", "已用过餐", "未录入"};

QString noMealName() { return QStringLiteral("自助餐【当前无餐次】"); }

int msAfter(int seconds)
{
    return static_cast<int>(
        qBound<qint64>(1000, (qint64(seconds) + 1) * 1000, std::numeric_limits<int>::max()));
}

void printMeal(const AddCardMealTimesDto& entry)
{
    buffet_print_struct slip;
    slip.cardNo = entry.cardNo();
    slip.itemName = entry.itemName();
    slip.num = entry.childNum();
    slip.price = entry.price();
    const SlipStamp stamp = SlipStamp::now();
    slip.staffCode = stamp.staffCode;
    slip.staffName = stamp.staffName;
    slip.orderDate = entry.orderDate();
    PosPrint::getInstance()->print(PrintBuffet, QVariant::fromValue(slip), {}, {});
}

} // namespace

MealCardsModel::MealCardsModel(QObject* parent)
    : RowModel({field("cardNo", &meal_card_struct::cardNo), field("createTime", &meal_card_struct::createTime),
                field("childNum", &meal_card_struct::childNum), field("itemName", &meal_card_struct::itemName)},
               parent)
{
}

void MealCardsModel::update(const Array<MealCardDto*>& cards)
{
    QVector<meal_card_struct> rows;
    for (const MealCardDto* card : cards)
        rows.append({card->cardNo(), card->itemTime(), 0, card->itemName()});
    replace(rows);
}

Module8Vm::Module8Vm(QObject* parent) : CounterVm(mealWords, parent), m_cards(new MealCardsModel(this))
{
    m_reader.listenToCards();
    m_timer.setSingleShot(true);
    m_timer.setObjectName(QStringLiteral("mealTimer"));
    connect(&m_timer, &QTimer::timeout, this, &Module8Vm::poll);
    m_childEnd.setSingleShot(true);
    m_childEnd.setInterval(childMs);
    m_childEnd.setObjectName(QStringLiteral("childTimer"));
    connect(&m_childEnd, &QTimer::timeout, this, &Module8Vm::resetChild);
    connect(this, &Module8Vm::isChildChanged, this,
            [this] { isChild() ? m_childEnd.start() : m_childEnd.stop(); });
    connect(this, &Module8Vm::childNumChanged, this, [this] {
        if (isChild())
            m_childEnd.start();
    });
}

void Module8Vm::init()
{
    const QPointer<Module8Vm> self(this);
    getMealTimes();
    if (!self)
        return;
    // What couldn't be read when the page opened is read with the first answer.
    m_isLoadDue = !pollFailure().isEmpty();
    if (!m_isLoadDue)
        load();
}

void Module8Vm::load()
{
    const QPointer<Module8Vm> self(this);
    getMealPersons();
    if (self && !mealId().isEmpty())
        getMealCards();
}

/// Not in the midst of a call, a question or a tap, which it would take from the guest.
void Module8Vm::poll()
{
    if (WaitStack::isEmpty() && !TapWatch::isFingerDown() && !TapWatch::isTapWithin(mealQuietMs))
        getMealTimes();
    else
        m_timer.start(mealPutOffMs);
}

void Module8Vm::getMealTimes()
{
    const QPointer<Module8Vm> self(this);
    m_timer.stop();
    const auto reply = call(&Bca01Service::getMealTimesInfo, QJsonObject());
    if (!self)
        return;
    const bool wasFailing = !pollFailure().isEmpty();
    setIsOnMealTime(isOk(*reply));
    setPollFailure({});
    if (isOk(*reply)) {
        if (reply->data())
            takeMeal(*reply->data());
        m_timer.start(reply->data() ? msAfter(reply->data()->remainingTime()) : mealPollMs);
        if (std::exchange(m_isLoadDue, false))
            load();
    } else if (reply->code() == QLatin1String("BCA_ERR_0005")) {
        setMealName(noMealName());
        m_timer.start(mealPollMs);
    } else if (!isAnswered(*reply)) {
        // One call that is lost mustn't close the door for the evening.
        setPollFailure(reply->msg().isEmpty() ? QStringLiteral("请求失败") : reply->msg());
        if (!wasFailing)
            MyMessage::getInstance()->showError(reply->msg());
        m_timer.start(mealPollMs);
    } else {
        MyMessage::getInstance()->showError(reply->msg());
    }
}

void Module8Vm::takeMeal(const MealTimeInfoDto& meal)
{
    setMealId(meal.mealId());
    setStartTime(meal.startTime());
    setEndTime(meal.endTime());
    const QString name =
        QStringLiteral("餐次: %1(%2-%3)").arg(meal.mealName(), meal.startTime(), meal.endTime());
    if (name == mealName())
        return;
    setMealName(name);
    m_cards->clear();
}

void Module8Vm::getMealPersons()
{
    if (!isOnMealTime())
        return;
    const QPointer<Module8Vm> self(this);
    const auto reply = call(&Bca01Service::getMealTimesStatistics, {{"mealId", mealId()}});
    if (!self || !isOk(*reply))
        return;
    QString text;
    for (const MealTimesStatisticsDto* line : reply->data())
        text += QStringLiteral("%1: %2\r\n").arg(line->sName()).arg(line->num());
    setMealPerson(text);
}

void Module8Vm::getMealCards()
{
    fetch(&Bca01Service::getMealCards, {{"mealId", mealId()}},
          [this](const GetMealCards& reply) { m_cards->update(reply.data()); });
}

bool Module8Vm::addMeal(const QString& cardNo, const QString& rfid)
{
    if (!isOnMealTime()) {
        const QString refusal = QStringLiteral("当前非用餐时间");
        MyMessage::getInstance()->ShowError(refusal);
        showRefused(pollFailure().isEmpty() ? refusal : pollFailure());
        return false;
    }
    const bool wasChild = isChild();
    const int wasNum = childNum();
    QJsonObject data{{"mealId", mealId()}, {"isChild", wasChild ? 1 : 0}};
    if (!cardNo.isEmpty())
        data.insert("cardNo", cardNo);
    if (!rfid.isEmpty())
        data.insert("cardUid", rfid);
    if (wasChild)
        data.insert("childNum", wasNum);
    // Another guest's card may come while this one waits for its answer.
    resetChild();
    const QPointer<Module8Vm> self(this);
    const auto reply = call(&Bca01Service::addCardMealTimes, data);
    if (self && !isOk(*reply)) {
        showRefusal(*reply);
        setIsChild(wasChild);
        setChildNum(wasNum);
    }
    if (!isOkOrShown(*reply))
        return false;
    if (reply->data()) {
        // The guest is let in before his slip is through the printer.
        if (self)
            takeEntry(*reply->data());
        printMeal(*reply->data());
    }
    if (self)
        getMealPersons();
    return true;
}

void Module8Vm::takeEntry(const AddCardMealTimesDto& entry)
{
    showTaken(
        QStringLiteral("%1  %2 × %3").arg(cardText(entry.cardNo()), entry.itemName()).arg(entry.childNum()));
    m_cards->add({entry.cardNo(), entry.orderDate(), entry.childNum(), entry.itemName()});
}

void Module8Vm::resetChild()
{
    setChildNum(1);
    setIsChild(false);
}

void Module8Vm::changeChildNum(int by) { setChildNum(qBound(1, childNum() + by, mostChildren)); }
