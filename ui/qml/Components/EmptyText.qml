import QtQuick 2.15

// What stands in the place of a list without entries.
PlainText {
    property Item list: null

    anchors.centerIn: parent
    width: Math.min(parent.width, implicitWidth)
    visible: list.count === 0
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignHCenter
    color: Theme.textMuted
}
