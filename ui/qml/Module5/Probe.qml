import QtQuick 2.15
import "../Components"

// A test of the workbench: what it is, what came of it, and the button that runs it.
Rectangle {
    id: probe

    property string caption: ""
    property string result: ""
    property bool isBad: false
    property string buttonText: ""
    property string buttonName: ""
    property bool canRun: true
    property var run: null
    default property alias content: body.data

    implicitHeight: Theme.px(240)
    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    PlainText {
        id: head
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.px(12)
        text: probe.caption
        font.pixelSize: Theme.textSize
    }

    Item {
        id: body
        anchors.left: head.left
        anchors.right: head.right
        anchors.top: head.bottom
        anchors.topMargin: Theme.px(4)
        anchors.bottom: button.top
        anchors.bottomMargin: Theme.px(6)

        PlainText {
            objectName: probe.buttonName + "Result"
            anchors.fill: parent
            text: probe.result
            wrapMode: Text.WrapAnywhere
            leastSize: Theme.leastSize
            font.pixelSize: Theme.textSize
            color: probe.isBad ? Theme.refusal : Theme.text
        }
    }

    PushButton {
        id: button
        objectName: probe.buttonName
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.px(10)
        height: Theme.px(56)
        pixelSize: Theme.textSize
        role: "plain"
        enabled: probe.canRun
        text: probe.buttonText
        action: () => probe.run()
    }
}
