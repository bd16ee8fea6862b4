import QtQuick 2.15
import QtQuick.Controls 2.15
import "../Components"

// A green panel beside the board: a title and a list.
Rectangle {
    property alias title: head.text
    property alias model: list.model
    property alias delegate: list.delegate

    radius: Theme.radius
    color: Theme.panel

    PlainText {
        id: head
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: 3
        color: Theme.textOn(parent.color)
    }

    ListView {
        id: list
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.bottom: parent.bottom
        anchors.margins: 6
        anchors.topMargin: 3
        clip: true
        spacing: 6
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {
            policy: ScrollBar.AsNeeded
        }

        PlaceKeeper {
            view: list
        }
    }
}
