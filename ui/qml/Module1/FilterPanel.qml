import QtQuick 2.15
import "../../js/Func.js" as JsFunc

// The floors or room types beside the board, of which any can be ticked; kind is how their roles begin.
SidePanel {
    id: panel

    property string kind: ""
    property var choose: null

    objectName: kind + "Panel"
    delegate: FilterRow {
        objectName: panel.kind + "_" + label
        width: ListView.view.width
        label: model[panel.kind + "Name"]
        num: model.num
        isChecked: model.isChecked
        onClicked: {
            const id = model[panel.kind + "Id"]
            JsFunc.singly(15, () => panel && panel.choose(id))
        }
    }
}
