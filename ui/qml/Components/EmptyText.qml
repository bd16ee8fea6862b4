import QtQuick 2.15

// What stands in the place of a list without entries, once it is known that there are none.
PlainText {
    property Item list: null

    readonly property bool isKnown: Boolean(list.model) && list.model.isLoaded !== false

    anchors.centerIn: parent
    width: Math.min(parent.width, implicitWidth)
    visible: isKnown && list.count === 0
    wrapMode: Text.Wrap
    horizontalAlignment: Text.AlignHCenter
    color: Theme.textMuted
}
