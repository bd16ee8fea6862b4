#include "Glyphs.h"

#include <QFile>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainterPath>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRawFont>
#include <QtTest>

#include <memory>

namespace {

QString fontFile(const char* name) { return QStringLiteral(FONT_DIR "/%1").arg(QLatin1String(name)); }

} // namespace

/// The made fonts and constants as Qt and QML see them.
class TestGlyphs : public QObject
{
    Q_OBJECT

private slots:
    void fontLoads_data();
    void fontLoads();
    void fixedCodePoint_data();
    void fixedCodePoint();
    void glyphAndScript_data();
    void glyphAndScript();
};

void TestGlyphs::fontLoads_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("text");
    QTest::newRow("iconfont.ttf") << "iconfont" << QString(QChar(Glyph::back));
    QTest::newRow("Pinfang.ttf") << QString() << QStringLiteral("A8系统启动中￥");
}

void TestGlyphs::fontLoads()
{
    QFETCH(QString, family);
    QFETCH(QString, text);
    const QString path = fontFile(QTest::currentDataTag());
    const int id = QFontDatabase::addApplicationFont(path);
    QVERIFY(id >= 0);
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    QFontDatabase::removeApplicationFont(id);
    QVERIFY(!families.isEmpty());
    QVERIFY(!families.first().isEmpty());
    if (!family.isEmpty())
        QCOMPARE(families.first(), family);

    const QRawFont font(path, 64);
    const QVector<quint32> glyphs = font.glyphIndexesForString(text);
    QCOMPARE(glyphs.size(), text.size());
    QVERIFY(!glyphs.contains(0));
}

void TestGlyphs::fixedCodePoint_data()
{
    QTest::addColumn<int>("constant");
    QTest::addColumn<int>("code");
    QTest::newRow("rooms") << int(Glyph::moduleRooms) << 0xE617;
    QTest::newRow("technician clock") << int(Glyph::moduleClock) << 0xE731;
    QTest::newRow("helper") << int(Glyph::moduleHelper) << 0xE730;
    QTest::newRow("consumption") << int(Glyph::moduleConsume) << 0xE688;
    QTest::newRow("timer first") << int(Glyph::moduleTimer) << 0xE6E1;
    QTest::newRow("self entry") << int(Glyph::moduleSelf) << 0xE73F;
    QTest::newRow("buffet") << int(Glyph::moduleBuffet) << 0xE6E6;
    QTest::newRow("transfer") << int(Glyph::moduleTransfer) << 0xE829;
    QTest::newRow("other module") << int(Glyph::moduleOther) << 0xE6A2;
    QTest::newRow("clear mark") << int(Glyph::clear) << 0xE728;
    QTest::newRow("back mark") << int(Glyph::back) << 0xE6D5;
    QTest::newRow("close mark") << int(Glyph::close) << 0xE6DD;
}

void TestGlyphs::fixedCodePoint()
{
    QFETCH(int, constant);
    QTEST(constant, "code");
}

void TestGlyphs::glyphAndScript_data()
{
    QTest::addColumn<QChar>("code");
    QFile table(QStringLiteral(GLYPH_TABLE));
    QVERIFY(table.open(QIODevice::ReadOnly));
    const QJsonArray rows = QJsonDocument::fromJson(table.readAll()).array();
    QVERIFY(rows.size() > 12);
    for (const QJsonValue& row : rows) {
        const ushort code = row["code"].toString().mid(2).toUShort(nullptr, 16);
        QTest::newRow(qPrintable(row["name"].toString())) << QChar(code);
    }
}

void TestGlyphs::glyphAndScript()
{
    QFETCH(QChar, code);
    static const QRawFont font(fontFile("iconfont.ttf"), 64);
    const QVector<quint32> glyphs = font.glyphIndexesForString(code);
    QCOMPARE(glyphs.size(), 1);
    QVERIFY(glyphs.first() != 0);

    // An item as high and wide as the font tells cuts nothing off.
    const QRectF outline = font.pathForGlyph(glyphs.first()).boundingRect();
    const double width = font.advancesForGlyphIndexes(glyphs).first().x();
    const double allowance = 1;
    const QRectF room(0, -font.ascent(), width, font.ascent() + font.descent());
    QVERIFY(outline.width() > 8 && outline.height() > 2);
    QVERIFY(room.adjusted(-allowance, -allowance, allowance, allowance).contains(outline));

    QQmlEngine engine;
    QQmlComponent page(&engine);
    page.setData("import QtQml 2.15\n"
                 "import \"qrc:/js/Glyphs.js\" as Glyphs\n"
                 "QtObject { property string text: Glyphs." +
                     QByteArray(QTest::currentDataTag()) + " }",
                 QUrl());
    const std::unique_ptr<QObject> object(page.create());
    QVERIFY2(object, qPrintable(page.errorString()));
    QCOMPARE(object->property("text").toString(), QString(code));
}

QTEST_MAIN(TestGlyphs)
#include "tst_glyphs.moc"
