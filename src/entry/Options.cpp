#include "entry/Options.h"

#include "DeploymentValues.h"

namespace {

QString helpText()
{
    return QStringLiteral(
        "usage: kv_panel [options]\n"
        "\n"
        "The touch terminal of the shop, on the whole screen. Settings, log and fonts lie beside the program.\n"
        "\n"
        "  --windowed       a plain window of 1366 x 768, for desks and developers\n"
        "  --places SOCKET  tells where the items of the pages are, for tools that tap them\n"
        "  --selftest       opens every page and dialog once, prints what failed, ends with 0 or 1\n"
        "  --staff NUMBER   logs this member of staff in for the self-test; the password is in "
        "KV_PANEL_PASSWORD\n"
        "  --strict         the self-test also fails what can't be read or hit: texts, contrasts, targets\n"
        "  --pictures DIR   saves what the self-test sees; needs a screen\n"
        "  --version        prints the version\n"
        "  --help           prints this\n");
}

} // namespace

Options Options::parse(const QStringList& arguments)
{
    Options options;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--windowed")) {
            options.isWindowed = true;
        } else if (argument == QLatin1String("--places") && i + 1 < arguments.size()) {
            options.placesSocket = arguments.at(++i);
        } else if (argument == QLatin1String("--selftest")) {
            options.isSelfTest = true;
        } else if (argument == QLatin1String("--strict")) {
            options.isStrict = true;
        } else if (argument == QLatin1String("--staff") && i + 1 < arguments.size()) {
            options.staffNo = arguments.at(++i);
        } else if (argument == QLatin1String("--pictures") && i + 1 < arguments.size()) {
            options.pictureFolder = arguments.at(++i);
        } else if (argument == QLatin1String("--version")) {
            options.answer = QStringLiteral("kv_panel %1\n").arg(QLatin1String(Deployment::version));
        } else if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            options.answer = helpText();
        } else if (argument.startsWith(QLatin1String("--"))) {
            options.answer = QStringLiteral("kv_panel: what is \"%1\"?\n\n%2").arg(argument, helpText());
            options.exitCode = 2;
            return options;
        }
    }
    return options;
}
