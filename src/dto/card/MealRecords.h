#pragma once

#include "dto/ApiRes.h"

/// The meal that is being served.
class MealTimeInfoDto : public QObject
{
    Q_OBJECT
    RECORD(MealTimeInfoDto)
    RECORD_FIELD(QString, mealId)      // meal
    RECORD_FIELD(QString, mealName)    // its name
    RECORD_FIELD(QString, startTime)   // begin, display text
    RECORD_FIELD(QString, endTime)     // end, display text
    RECORD_FIELD(int, remainingTime)   // seconds to its end
    RECORD_FIELD(int, remainingMinute) // unread
};

class GetMealTimesInfo : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetMealTimesInfo, ApiRes)
    RECORD_FIELD(MealTimeInfoDto*, data)
};

/// A meal that was given to a hand card.
class MealCardDto : public QObject
{
    Q_OBJECT
    RECORD(MealCardDto)
    RECORD_FIELD(QString, cardNo)   // hand card
    RECORD_FIELD(QString, cardType) // unread
    RECORD_FIELD(QString, itemTime) // when
    RECORD_FIELD(QString, itemName) // item
};
RECORD_LIST(MealCardDto)

class GetMealCards : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetMealCards, ApiRes)
    RECORD_FIELD(Array<MealCardDto*>, data)
};

/// One count of the meal's statistics.
class MealTimesStatisticsDto : public QObject
{
    Q_OBJECT
    RECORD(MealTimesStatisticsDto)
    RECORD_FIELD(QString, sName) // what is counted
    RECORD_FIELD(int, num)       // count
    RECORD_FIELD(qlonglong, id)  // unread
};
RECORD_LIST(MealTimesStatisticsDto)

class GetMealTimesStatistics : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetMealTimesStatistics, ApiRes)
    RECORD_FIELD(Array<MealTimesStatisticsDto*>, data)
};

/// Answer to a meal that was given, for the buffet slip.
class AddCardMealTimesDto : public QObject
{
    Q_OBJECT
    RECORD(AddCardMealTimesDto)
    RECORD_FIELD(QString, cardNo)    // number printed on the hand card
    RECORD_FIELD(QString, orderDate) // date and time of the meal
    RECORD_FIELD(QString, itemName)  // item
    RECORD_FIELD(int, childNum)      // quantity, 1 for a grown-up
    RECORD_FIELD(double, price)      // of one, yuan
};

class AddCardMealTimes : public ApiRes
{
    Q_OBJECT
    RECORD_ON(AddCardMealTimes, ApiRes)
    RECORD_FIELD(AddCardMealTimesDto*, data)
};
