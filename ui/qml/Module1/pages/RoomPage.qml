import QtQuick 2.15
import "../../Components"

// Frame of a page inside a room dialog: what the page shows, and the button that does it. Both rest while isEnabled is
// false.
Item {
    id: page

    property string roomId: ""
    property string roomNo: ""
    property string confirmText: ""
    property bool isEnabled: true
    default property alias content: body.data

    signal confirmed()

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: button.top
        anchors.bottomMargin: Theme.spacing
        enabled: page.isEnabled
    }

    PushButton {
        id: button
        objectName: "saveButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        visible: page.confirmText !== ""
        height: visible ? Theme.buttonHeight : 0
        width: 260
        text: page.confirmText
        enabled: page.isEnabled
        onClicked: page.confirmed()
    }
}
