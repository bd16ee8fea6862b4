import QtQuick 2.15
import "../../Components"

// Tiles of which the model marks one.
ChoiceGrid {
    id: grid

    property string textRole: ""
    property string namePrefix: ""

    signal chosen(int index)

    tileWidth: 230
    delegate: CheckTile {
        objectName: grid.namePrefix + index
        width: grid.cellWidth - 8
        height: grid.cellHeight - 8
        text: model[grid.textRole]
        backColor: model.backColor
        foreColor: model.foreColor
        Accessible.checked: model.isChecked
        onClicked: grid.chosen(index)
    }
}
