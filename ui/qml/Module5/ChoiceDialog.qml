import QtQuick 2.15
import QtQuick.Controls 2.15
import "../Components"

// One of a list of texts, as a function call: choose() returns its position, -1 when it was called off.
TitledDialog {
    id: dialog

    property int picked: -1
    property int current: -1
    property var note: null // note(text): a word behind an entry

    function choose(caption, model, index, noteOf) {
        title = caption
        entries.model = model
        current = index
        note = noteOf || null
        isFinished = false
        wait()
        return dlgResult ? picked : -1
    }

    objectName: "choiceDialog"
    hasCross: true
    width: Theme.px(620)
    height: Math.min(Theme.px(640), Theme.px(96) + Math.max(2, entries.count) * Theme.px(68) + Theme.spacing)

    ListView {
        id: entries
        anchors.fill: parent
        anchors.margins: Theme.spacing
        clip: true
        spacing: Theme.px(4)
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ListScrollBar {
            id: bar
        }
        delegate: CheckTile {
            objectName: "choice_" + index
            width: entries.width - bar.width
            height: Theme.px(64)
            text: (model.name === "" ? "（无）" : model.name) + (dialog.note ? dialog.note(model.name) : "")
            isToggle: false
            isChosen: index === dialog.current
            backColor: isChosen ? Theme.current : Theme.surface
            foreColor: isChosen ? Theme.currentText : Theme.text
            onClicked: {
                dialog.picked = index
                dialog.finish(true)
            }
        }

        EmptyText {
            list: entries
            text: "没有可选的"
        }
    }
}
