import QtQuick 2.15
import "../Components"

// Page of a module that has none of its own yet.
Item {
    property string module: ""

    objectName: module

    PlainText {
        anchors.centerIn: parent
        text: "模块尚未开通"
        font.pixelSize: Theme.titleSize
    }
}
