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

/// The made fonts and constants as Qt and QML see them.
class TestGlyphs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fontsLoad()
    {
        for (const QString file : {FONT_DIR "/iconfont.ttf", FONT_DIR "/Pinfang.ttf"}) {
            const QString family =
                QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(file)).value(0);
            QVERIFY2(file.contains("iconfont") ? family == "iconfont" : !family.isEmpty(), qPrintable(family));
        }
        const QString text = "A8系统启动中￥";
        const QVector<quint32> glyphs =
            QRawFont(QString(FONT_DIR "/Pinfang.ttf"), 64).glyphIndexesForString(text);
        QVERIFY(glyphs.size() == text.size() && !glyphs.contains(0));
    }

    void glyphsAndScript()
    {
        QFile table(GLYPH_TABLE);
        QVERIFY(table.open(QIODevice::ReadOnly));
        const QJsonArray rows = QJsonDocument::fromJson(table.readAll()).array();
        QVERIFY(rows.size() > 12);
        const QRawFont font(QString(FONT_DIR "/iconfont.ttf"), 64);
        QByteArray page = "import QtQml 2.15\nimport \"qrc:/js/Glyphs.js\" as Glyphs\nQtObject {\n";
        QMap<QByteArray, QString> codes;
        for (const QJsonValue row : rows) {
            const QByteArray name = row["name"].toString().toLatin1();
            codes[name] = QChar(row["code"].toString().mid(2).toUShort(nullptr, 16));
            page += "property string " + name + ": Glyphs." + name + '\n';
            const QVector<quint32> glyphs = font.glyphIndexesForString(codes[name]);
            QVERIFY2(glyphs.size() == 1 && glyphs.first() != 0, name);

            // An item as high and wide as the font tells cuts nothing off.
            const QRectF outline = font.pathForGlyph(glyphs.first()).boundingRect();
            const double width = font.advancesForGlyphIndexes(glyphs).first().x();
            const QRectF room(-1, -font.ascent() - 1, width + 2, font.ascent() + font.descent() + 2);
            QVERIFY2(outline.width() > 8 && outline.height() > 2 && room.contains(outline), name);
        }
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(page + '}', QUrl());
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        for (const QByteArray& name : codes.keys())
            QCOMPARE(object->property(name).toString(), codes.value(name));
    }
};

QTEST_MAIN(TestGlyphs)
#include "tst_glyphs.moc"
