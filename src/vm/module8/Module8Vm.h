#pragma once

#include "common/RowModel.h"
#include "dto/card/MealRecords.h"
#include "vm/shared/CounterVm.h"

/// A meal that a card was given.
struct meal_card_struct
{
    QString cardNo;
    QString createTime;
    int childNum = 0;
    QString itemName;
};

class MealCardsModel : public RowModel<meal_card_struct>
{
    Q_OBJECT

public:
    explicit MealCardsModel(QObject* parent = nullptr);

    void clear() { replace({}); }
    void add(const meal_card_struct& card) { insertAt(0, card); }
    void update(const Array<MealCardDto*>& cards);
};

/// The door of the buffet: asks the back end which meal runs, and books one for each card that is presented.
class Module8Vm : public CounterVm
{
    Q_OBJECT
    PROPERTY(QString, mealId, setMealId, {})
    PROPERTY(QString, mealName, setMealName, QStringLiteral("自助餐【当前无餐次】")) // head of the page
    PROPERTY(QString, startTime, setStartTime, {})
    PROPERTY(QString, endTime, setEndTime, {})
    PROPERTY(bool, isOnMealTime, setIsOnMealTime, false)
    PROPERTY(QString, pollFailure, setPollFailure, {}) // why it isn't known which meal runs
    CONSTANT_PROPERTY(MealCardsModel*, pMealCardsModel, m_cards)
    PROPERTY(bool, isChild, setIsChild, false) // the next meal is a child's
    PROPERTY(int, childNum, setChildNum, 1)
    PROPERTY(QString, mealPerson, setMealPerson, {}) // counts of the meal, a line each

public:
    explicit Module8Vm(QObject* parent = nullptr);

    Q_INVOKABLE void init();
    /// Gives a meal to a card, by its number or by its serial, and prints its slip.
    Q_INVOKABLE bool addMeal(const QString& cardNo, const QString& rfid);
    Q_INVOKABLE void changeChildNum(int by);

protected:
    void take(const QString& cardNo, const QString& rfid) override { addMeal(cardNo, rfid); }

private:
    void load();
    void poll();
    void getMealTimes();
    void takeMeal(const MealTimeInfoDto& meal);
    void getMealPersons();
    void getMealCards();
    void resetChild();
    void takeEntry(const AddCardMealTimesDto& entry);

    MealCardsModel* m_cards;
    bool m_isLoadDue = false; ///< the page opened while the line was gone
    QTimer m_timer{this};     ///< until it is asked again which meal runs
    QTimer m_childEnd{this};  ///< until a child box that a guest left behind is cleared
};
