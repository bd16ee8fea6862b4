import QtQuick 2.15

// Tiles of which the model marks one; a tap on one is choose(index).
ChoiceGrid {
    id: grid

    property string textRole: ""
    property string namePrefix: ""
    property string noteRole: ""
    property var choose: null

    tileWidth: Theme.px(230)
    delegate: CheckTile {
        objectName: grid.namePrefix + index
        width: grid.cellWidth - 8
        height: grid.cellHeight - 8
        text: model[grid.textRole]
        note: grid.noteRole === "" ? "" : model[grid.noteRole]
        isChosen: model.isChecked
        isToggle: false
        backColor: model.backColor
        foreColor: model.foreColor
        Accessible.checked: model.isChecked
        onClicked: grid.run(grid.choose, index)
    }
}
