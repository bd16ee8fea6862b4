import QtQuick 2.15

// Keeps a list where the user left it, by its cards: the one that stood at the top edge stays there, whatever came or
// went above it. A list that was left at its top shows its top.
QtObject {
    id: keeper

    required property Flickable view
    property var ids: [] // of the entries from the top edge on, empty at the top
    property real offset: 0

    readonly property int gap: 8 // more than lies between two rows

    function note() {
        const first = view.contentY > view.originY ? view.indexAt(1, view.contentY + gap) : -1
        const item = first < 0 ? null : view.itemAtIndex(first)
        ids = item ? view.model.ids().slice(first) : []
        offset = item ? view.contentY - item.y : 0
    }

    function restore() {
        if (view.moving)
            return
        view.forceLayout()
        const still = ids.find(id => view.model.indexOf(id) >= 0)
        if (still === undefined) {
            view.positionViewAtBeginning()
            return
        }
        view.positionViewAtIndex(view.model.indexOf(still), ListView.Beginning)
        const last = view.originY + view.contentHeight - view.height
        view.contentY = Math.max(view.originY, Math.min(view.contentY + offset, last))
    }

    readonly property Connections updates: Connections {
        target: keeper.view.model || null
        function onAboutToUpdate() {
            keeper.note()
        }
        // The view learns of it behind this.
        function onUpdated() {
            Qt.callLater(keeper.restore)
        }
    }
}
