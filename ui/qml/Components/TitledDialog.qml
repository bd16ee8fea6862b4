import QtQuick 2.15

// A dialog with a head row: its title, and a way back or a cross that leaves it without a result.
DialogFrame {
    id: dialog

    property alias hasBack: head.hasBack
    property alias hasCross: head.hasCross
    default property alias content: body.data

    header: null
    contentItem: Item {
        DialogHead {
            id: head
            anchors.left: parent.left
            anchors.right: parent.right
            title: dialog.title
            onExited: dialog.finish(false)
        }

        Item {
            id: body
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: head.bottom
            anchors.bottom: parent.bottom
        }
    }
}
