#pragma once

#include "src/House.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace house {

/// What a save books: on a card, which may sit in a room, or on a room alone.
struct Account
{
    const Card* card = nullptr;
    const Room* room = nullptr;
};

/// A save of new lines and chargebacks. All lines are looked at before the first is booked, so a refused save
/// books nothing.
class Sale
{
public:
    Sale(House& house, const Call& call, Account account);

    /// Reads the lines, or refuses; with "AUTH_ERR_0002" when a line needs a right that nobody here holds.
    void read(const nlohmann::json& items);
    void book();

    /// Of the first line that has one.
    std::string areaId() const;
    std::string deskNo() const { return desk; }
    bool concernsStaff() const; ///< a technician's service was booked or taken back

private:
    struct Chargeback
    {
        Order* order = nullptr;
        double num = 0;
    };

    void readLine(const nlohmann::json& row);
    void readNew(const nlohmann::json& row, LineStatus status);
    void readPeople(const nlohmann::json& row, Order& order) const;
    void readChargeback(const nlohmann::json& row);
    bool isOfAccount(const Order& order) const;
    void assign(const Order& order);

    House& house;
    const Call& call;
    const Account account;
    std::vector<Order> lines;
    std::vector<Chargeback> chargebacks;
    std::string desk;
};

} // namespace house
