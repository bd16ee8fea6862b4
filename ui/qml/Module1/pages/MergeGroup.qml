import QtQuick 2.15
import "../../Components"
import "../../../js/Func.js" as JsFunc

// The rooms of one group, of which any can be selected.
Column {
    id: group

    property string name: ""
    property var rooms: null

    readonly property int tilesPerRow: Math.max(1, Math.floor((width + flow.spacing) / 240))

    spacing: 6

    Text {
        width: parent.width
        text: group.name
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.family: Pinfang
        font.pixelSize: 22
        color: Theme.textMuted
    }

    Flow {
        id: flow
        width: parent.width
        spacing: 8

        Repeater {
            model: group.rooms

            CheckTile {
                objectName: "room_" + model.tempId
                width: Math.floor((flow.width + flow.spacing) / group.tilesPerRow) - flow.spacing
                height: 58
                text: model.tempName
                backColor: model.isSelected ? "#A154EE" : "#EBEBEB"
                foreColor: model.isSelected ? Theme.textOnColor : Theme.text
                Accessible.checked: model.isSelected
                onClicked: JsFunc.delay15(() => group && group.rooms.onSelected(index))
            }
        }
    }
}
