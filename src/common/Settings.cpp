#include "common/Settings.h"

#include "common/GlobalConfig.h"
#include "common/Sqlite.h"

#include <algorithm>
#include <limits>

namespace Settings {
namespace {

constexpr int any = std::numeric_limits<int>::min();

bool isUsable(const Key& key, const QString& stored)
{
    switch (key.kind) {
    case Kind::Flag:
        return stored == QLatin1String("1");
    case Kind::Number:
        return !stored.isEmpty() && stored.toInt() >= key.least;
    default:
        return !stored.isEmpty();
    }
}

} // namespace

const std::vector<Key>& keys()
{
    // clang-format off
    static const std::vector<Key> table{
        {"js_item_count",           Kind::Number, "0", any, &GlobalConfig::js_item_count},
        {"cons_item_count",         Kind::Number, "0", any, &GlobalConfig::cons_item_count},
        {"room_item_count",         Kind::Number, "0", any, &GlobalConfig::room_item_count},
        {"js_assign_type",          Kind::Number, "1", 1, &GlobalConfig::js_assign_type},
        {"stop_server_print_count", Kind::Number, "0", 1, &GlobalConfig::stop_server_print_count},
        {"hand_card_device",        Kind::Flag,   "",  0, &GlobalConfig::hand_card_device},
        {"leave_room_print_count",  Kind::Number, "0", 1, &GlobalConfig::leave_room_print_count},
        {"zy_tts_text",             Kind::Text,   "",  0, nullptr, &GlobalConfig::setZyTtsText},
        {"call_count",              Kind::Number, "1", 1, &GlobalConfig::call_count},
        {"is_use_tts",              Kind::Flag,   "",  0},
        {"tts_language",            Kind::Text,   "",  0}, // the engine's own
        {"tts_voice",               Kind::Text,   "",  0}, // the engine's own
        {"tts_speed",               Kind::Number, "0", any},
        {"staff_device_com",        Kind::Text,   "",  0}, // no reader
        {"hand_card_com",           Kind::Text,   "",  0},
        {"is_rfid_8",               Kind::Flag,   "",  0},
        {"print",                   Kind::Text,   "",  0}, // no printer
        {"print_mode",              Kind::Number, "0", 0},
        {"is_single_print",         Kind::Flag,   "",  0},
        {"is_open_room_print",      Kind::Flag,   "",  0},
        {"is_small_img_mode",       Kind::Flag,   "",  0},
        {"sys_api_req",             Kind::Text,   "",  0}, // the last line list, compact JSON
    };
    // clang-format on
    return table;
}

QString read(const QString& name)
{
    Sqlite table;
    if (!table.open())
        return {};
    const QString value = table.query(name);
    table.close();
    return value;
}

bool write(const QString& name, const QString& value)
{
    Sqlite table;
    if (!table.open())
        return false;
    const bool isStored = table.addData(name, value);
    table.close();
    return isStored;
}

bool writeAll(const Values& values, QString& failed)
{
    failed = values.empty() ? QString() : values.front().first;
    Sqlite table;
    if (!table.open())
        return false;
    const auto isStored = [&](const auto& value) {
        failed = value.first;
        return table.addData(value.first, value.second);
    };
    const bool isDone = table.begin() && std::all_of(values.begin(), values.end(), isStored) && table.commit();
    if (!isDone)
        table.rollback();
    table.close();
    return isDone;
}

const Key* find(const QString& name)
{
    const auto key = std::find_if(keys().begin(), keys().end(),
                                  [&](const Key& each) { return name == QLatin1String(each.name); });
    return key == keys().end() ? nullptr : &*key;
}

QString text(const QString& name)
{
    const QString stored = read(name);
    const Key* key = find(name);
    return !key || isUsable(*key, stored) ? stored : QString::fromLatin1(key->byDefault);
}

bool isOn(const QString& name) { return read(name) == QLatin1String("1"); }

void fill(GlobalConfig& config)
{
    for (const Key& key : keys()) {
        if (!key.number && !key.setText)
            continue;
        const QString stored = read(QLatin1String(key.name));
        if (!isUsable(key, stored))
            continue;
        if (key.number)
            config.*key.number = stored.toInt();
        else
            (config.*key.setText)(stored);
    }
}

} // namespace Settings
