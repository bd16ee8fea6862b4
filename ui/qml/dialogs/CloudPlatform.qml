import QtQuick 2.15
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// One platform of lines with its image; a line shows its check box, its mark and the result of its test.
Rectangle {
    id: platform

    property string name: ""
    property string icon: ""
    property var lines: null

    signal chosen(int line)

    implicitHeight: Math.max(110, grid.implicitHeight + 2 * Theme.spacing)
    radius: Theme.radius
    color: Theme.surface

    Column {
        id: title
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 150
        spacing: 6

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 48
            height: 48
            visible: platform.icon !== "" && status === Image.Ready
            source: platform.icon
            sourceSize: Qt.size(48, 48)
            asynchronous: true
            fillMode: Image.PreserveAspectFit
        }

        IconText {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: platform.icon === ""
            iconText: Glyphs.network
            iconColor: Theme.accent
            pixelSize: 40
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: platform.name
        }
    }

    Grid {
        id: grid
        anchors.left: title.right
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        columns: 2
        spacing: 10

        Repeater {
            model: platform.lines

            Tappable {
                readonly property bool isChosen: model.isChecked

                objectName: "line_" + platform.name + "_" + index
                width: (grid.width - grid.spacing) / 2
                height: 64
                label: model.name
                restColor: Theme.surfaceMuted
                border.width: model.isChecked ? 2 : 1
                border.color: model.isChecked ? Theme.accent : Theme.line
                Accessible.role: Accessible.CheckBox
                Accessible.checked: model.isChecked
                onClicked: platform.chosen(index)

                CheckIcon {
                    id: box
                    anchors.left: parent.left
                    anchors.leftMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    isChecked: model.isChecked
                }

                PlainText {
                    anchors.left: box.right
                    anchors.leftMargin: 8
                    anchors.right: mark.left
                    anchors.rightMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: model.name
                }

                Rectangle {
                    id: mark
                    objectName: "mark_" + platform.name + "_" + index
                    anchors.right: result.left
                    anchors.rightMargin: 6
                    anchors.verticalCenter: parent.verticalCenter
                    width: 14
                    height: 14
                    radius: 7
                    color: model.backColor
                }

                PlainText {
                    id: result
                    objectName: "result_" + platform.name + "_" + index
                    anchors.right: parent.right
                    anchors.rightMargin: 12
                    anchors.verticalCenter: parent.verticalCenter
                    width: 70
                    text: model.content
                    elide: Text.ElideNone
                    font.pixelSize: 18
                    color: Theme.textMuted
                }
            }
        }
    }
}
