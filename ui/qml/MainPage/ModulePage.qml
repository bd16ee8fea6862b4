import QtQuick 2.15
import "../Components"

// Page of a module that has none of its own yet.
Item {
    property string module: ""

    objectName: module

    Text {
        anchors.centerIn: parent
        text: "模块尚未开通"
        font.family: Pinfang
        font.pixelSize: Theme.titleSize
        color: Theme.textMuted
    }
}
