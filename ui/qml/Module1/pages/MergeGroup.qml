import QtQuick 2.15
import "../../Components"

// The rooms of one group, of which any can be selected.
Column {
    id: group

    property alias name: head.text
    property var rooms: null

    readonly property int tilesPerRow: Math.max(1, Math.floor((width + flow.spacing) / Theme.px(240)))

    spacing: Theme.gap

    PlainText {
        id: head
        width: parent.width
        font.pixelSize: Theme.headSize
        color: Theme.textMuted
    }

    Flow {
        id: flow
        width: parent.width
        spacing: Theme.gap

        Repeater {
            model: group.rooms

            CheckTile {
                objectName: "room_" + model.tempId
                width: Math.floor((flow.width + flow.spacing) / group.tilesPerRow) - flow.spacing
                height: Theme.keyHeight
                isChosen: model.isSelected
                text: model.tempName
                backColor: model.isSelected ? Theme.joined : Theme.unjoined
                foreColor: model.isSelected ? Theme.textOnColor : Theme.text
                Accessible.checked: model.isSelected
                action: () => group.rooms.onSelected(index)
            }
        }
    }
}
