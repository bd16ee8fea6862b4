#pragma once

#include "src/Asked.h"
#include "src/state/StateSeed.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string>

/// What the tests of the house share.

constexpr house::Seconds now = 1770000000;
constexpr house::Seconds minute = 60;

/// Keeps the topics on which the house publishes.
struct Recorder final : house::Publisher
{
    explicit Recorder(QStringList& topics) : topics(topics) {}
    bool publish(const std::string& topic, const std::string&) override
    {
        topics.append(QString::fromStdString(topic));
        return true;
    }

    QStringList& topics;
};

/// The house of the seed at `now`, with what it published.
struct FurnishedHouse : house::House
{
    explicit FurnishedHouse(int rooms = 0)
    {
        seed = house::loadSeed(KV_SOURCE_FOLDER "/house/seed/house.json");
        state = house::furnish(seed, rooms, now);
        clock = [this] { return time; };
        publisher = std::make_unique<Recorder>(topics);
    }

    house::Room& room(const QString& code) { return *state.roomByCode(code.toStdString()); }
    house::Card& card(const QString& number) { return *state.cardByNumber(number.toStdString()); }
    const house::Staff& staff(const QString& code) { return *seed.staffByCode(code.toStdString()); }

    /// JSON in which a marked name stands for an id: "$101" for that of a room, "#8001" of a card, "@801" of a
    /// staff member, "~可乐" of the latest line of this item, and "%一楼" of whatever else bears the name.
    nlohmann::json filled(QString text) const
    {
        const auto fill = [&](QChar mark, const auto& rows, auto name) {
            for (const auto& row : rows)
                text.replace(mark + QString::fromStdString(row.*name) + '"',
                             QString::fromStdString(row.id) + '"');
        };
        fill('$', state.rooms, &house::Room::code);
        fill('#', state.cards, &house::Card::number);
        fill('@', seed.staff, &house::Staff::code);
        fill('~', state.orders, &house::Order::itemName);
        fill('%', state.floors, &house::Floor::name);
        fill('%', state.roomTypes, &house::RoomType::name);
        fill('%', state.plans, &house::Plan::name);
        fill('%', state.occupationTypes, &house::OccupationType::name);
        fill('%', state.callContents, &house::CallContent::name);
        fill('%', state.items, &house::Item::name);
        return nlohmann::json::parse(text.toStdString());
    }

    /// What an endpoint answers a staff member at the first terminal, the check of the request left out.
    house::Reply ask(const QString& path, const nlohmann::json& body, const QString& staffNo = "1001")
    {
        house::Call call;
        call.body = body;
        call.params["secretKey"] = seed.terminals.front().secretKey;
        call.terminal = &seed.terminals.front();
        call.session = house::Session{};
        call.staff = &staff(staffNo);
        call.now = time;
        return endpoints.find(path.toStdString())->answer(*this, call);
    }
    /// The data of the answer, null without any.
    nlohmann::json told(const QString& path, const nlohmann::json& body)
    {
        return ask(path, body).data.value_or(nlohmann::json());
    }
    /// The room's record on the board.
    nlohmann::json board(const QString& code)
    {
        return told("/bba01/getRoomList", {{"roomno", code.toStdString()}}).at(0);
    }
    double amountOn(const QString& cardNumber)
    {
        return house::amountOf(state.ordersOfCard(card(cardNumber).id));
    }

    house::Seconds time = now;
    QStringList topics;
};
