#include "common/Modules.h"

#include "Glyphs.h"
#include "common/GlobalConfig.h"

#include <algorithm>

const std::vector<Module>& Modules::all()
{
    // clang-format off
    static const std::vector<Module> table{
        {"ROOMINFO_CTRL",  "ROOMINFO_CTRL",  Module::Tile,          "Module1", "", "", "", "", Glyph::moduleRooms, "#2F6FE4", "#2257B8"},
        {"CONSUME_CTRL",   "CONSUME_CTRL",   Module::Tile,          "Module2", "", "", "", "", Glyph::moduleConsume, "#C93756", "#A32543"},
        {"STAFF_QTZ_CTRL", "STAFF_QTZ_CTRL", Module::Tile,          "Module3", "", "staffNo", "", "", Glyph::moduleClock, "#12756F", "#0C5B57"},
        {"HELP_BASH_WAIT", "HELP_BASH_WAIT", Module::Tile,          "Module4", "", "staffNo=userNo staffPwd=pwd staffUid staffId", "", "", Glyph::moduleHelper, "#B4541A", "#934012"},
        {"NO_ITEM_SERVER", "NO_ITEM_SERVER", Module::Tile,          "Module6", "", "staffNo staffId", "", "", Glyph::moduleTimer, "#6B4BCB", "#5236A8"},
        {"SELF_ORDER",     "SELF_ORDER",     Module::Tile,          "Module7", "", "", "", "", Glyph::moduleSelf, "#2A7F3D", "#1F6630"},
        {"ZZC_CTRL",       "ZZC_CTRL",       Module::Tile,          "Module8", "", "", "", "", Glyph::moduleBuffet, "#8F6400", "#745100"},
        {"TRANSFER_CTRL",  "PAY_CTRL",       Module::FreeTile,      "Module9", "", "", "手牌转账", "", Glyph::moduleTransfer, "#1B7396", "#135A76"},
        {"SYS_CTRL",       "SYS_CTRL",       Module::RightedButton, "Module5", "", "", "系统设置", "sys_config.png"},
        {"JRZB",           "CONSUME_CTRL",   Module::Button,        "", "todaySumDlg", "", "今日指标", "person.png"},
        {"YJ",             "CONSUME_CTRL",   Module::Button,        "", "sellSumDlg", "", "个人业绩", "gryj.png"},
    };
    // clang-format on
    return table;
}

const Module& Modules::find(const QString& code)
{
    static const Module unknown{"", "", Module::Tile,       "",        "",       "",
                                "", "", Glyph::moduleOther, "#5B6E84", "#465669"};
    const auto found = std::find_if(all().begin(), all().end(),
                                    [&](const Module& module) { return code == QLatin1String(module.code); });
    return found == all().end() ? unknown : *found;
}

QString Modules::urlOf(const QString& page)
{
    return page.isEmpty() ? QString() : QStringLiteral("qrc:/qml/%1/%1.qml").arg(page);
}

QVariantList Modules::buttons() const
{
    QVariantList found;
    for (const Module& module : all()) {
        if (*module.image)
            found.append(QVariantMap{{QStringLiteral("code"), QLatin1String(module.code)},
                                     {QStringLiteral("name"), QString::fromUtf8(module.name)},
                                     {QStringLiteral("image"), QLatin1String(module.image)},
                                     {QStringLiteral("needsRight"), module.entry == Module::RightedButton}});
    }
    return found;
}

QString Modules::nameOf(const QString& code) const
{
    if (const FuncMenuModel* menu = GlobalConfig::getInstance()->funcMenu()) {
        const int tile = menu->find([&](const Func_Menu_struct& entry) { return entry.funcVal == code; });
        if (tile >= 0)
            return menu->row(tile).authName;
    }
    return QString::fromUtf8(find(code).name);
}

QVariantMap Modules::of(const QString& code) const
{
    const Module& module = find(code);
    return {{QStringLiteral("loginWord"), QLatin1String(module.loginWord)},
            {QStringLiteral("page"), QLatin1String(module.page)},
            {QStringLiteral("dialog"), QLatin1String(module.dialog)},
            {QStringLiteral("url"), urlOf(QLatin1String(module.page))}};
}

QVariantMap Modules::arguments(const QString& code, const QVariantMap& login) const
{
    QVariantMap found;
    for (const QString& argument : QString::fromLatin1(find(code).arguments).split(' ', Qt::SkipEmptyParts))
        found.insert(argument.section('=', 0, 0), login.value(argument.section('=', -1)).toString());
    return found;
}
