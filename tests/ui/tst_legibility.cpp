// Whether the self-test notices what can't be read or hit.

#include "Terminal.h"
#include "inspect/Legibility.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QtTest>

#include <memory>

class tst_legibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faults_data();
    void faults();
};

// What stands on a white page ; what is found.
void tst_legibility::faults_data()
{
    addRows(R"(
readable ; Text { text: 'abc'; font.pixelSize: 14; color: '#555' } ;
small ; Text { text: 'abc'; font.pixelSize: 13 } ; "abc" has 13 px
shrunk ; Text { text: 'abcdefgh'; width: 20; height: 30; font.pixelSize: 20; fontSizeMode: Text.Fit; minimumPixelSize: 2 }
    ; "abcdefgh" has * px
pale ; Text { text: 'abc'; color: '#999' } ; "abc" has a contrast of 2.8
pale on a tile ; Rectangle { width: 90; height: 40; color: '#27B2CA'; Text { text: 'abc'; color: 'white' } }
    ; "abc" has a contrast of 2.5
seen through ; Text { text: 'abc'; color: '#333'; opacity: 0.55 } ; *has a contrast of *
fading ; Text { text: 'abc'; opacity: 0.2 } ;
of no use now ; Text { text: 'abc'; color: '#999'; enabled: false } ;
too wide ; Text { text: 'abcdefgh'; width: 20 } ; *is larger than its place
too high ; Text { text: 'ab cd ef gh'; width: 40; height: 20; wrapMode: Text.Wrap } ; *is larger than its place
cut off on purpose ; Text { text: 'abcdefgh'; width: 40; elide: Text.ElideRight } ;
glyph ; Text { text: '\ue800'; font.pixelSize: 9; color: '#eee' } ;
half off the screen ; Text { x: 190; text: 'abc'; color: '#eee' } ;
clipped ; Item { width: 5; height: 5; clip: true; Text { text: 'abc'; color: '#eee' } } ;
target ; MouseArea { objectName: 'key'; width: 47; height: 90 } ; key is a target of 47 px
reaching target ; Item { property bool isPressed; property int reach: 4; width: 40; height: 90 } ;
target out of use ; MouseArea { width: 9; height: 9; enabled: false } ;
hidden ; MouseArea { width: 9; height: 9; visible: false } ;
)");
}

void tst_legibility::faults()
{
    QFETCH(QStringList, row);
    const QString& fault = row.at(2);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(
        "import QtQuick 2.15\nimport QtQuick.Window 2.15\nWindow { width: 200; height: 200; visible: true\n"
        "Rectangle { anchors.fill: parent }\n" +
            row.at(1).toUtf8() + " }",
        {});
    const std::unique_ptr<QObject> made(component.create());
    auto* window = qobject_cast<QQuickWindow*>(made.get());
    QVERIFY2(window, qPrintable(component.errorString()));
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const auto grab = window->contentItem()->grabToImage();
    QVERIFY(grab && QSignalSpy(grab.data(), &QQuickItemGrabResult::ready).wait());
    const QStringList found = Legibility::faults(Legibility::wholeItems(window->contentItem()), grab->image());
    QVERIFY2(found.size() == (fault.isEmpty() ? 0 : 1), qPrintable(found.join(", ")));
    const QRegularExpression expected(QRegularExpression::wildcardToRegularExpression(fault));
    QVERIFY2(found.value(0).contains(expected), qPrintable(found.value(0)));
}

QTEST_MAIN(tst_legibility)
#include "tst_legibility.moc"
