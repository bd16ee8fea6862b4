import QtQml 2.15
import "DlgManager.js" as Dlg

// What the terminal's own test opens, in the place of a user. A folder of pages tells how in a file Inspection.qml, with
// a function openings(dialog), and in barring what a module says to whom it is not for. The function returns nothing for a
// dialog that is opened as it is, else a list of
//   properties  what it is opened with
//   label       where there are several
//   missing     why it can't be opened now, if so
//   inside      given the open dialog, a list of what is looked at in it: name, open() and seen(), which returns the item
//               or null
QtObject {
    id: opener

    property var test: null // isLoggedIn(), isShown(item), rows(item)

    function isBuilt(page) {
        const comp = Qt.createComponent(page)
        const isThere = comp.status === 1 || !comp.errorString().includes("No such file") // 1: Component.Ready
        comp.destroy()
        return isThere
    }

    function inspectionOf(folder) {
        const file = Qt.resolvedUrl(folder + "/Inspection.qml")
        return isBuilt(file) ? Qt.createComponent(file).createObject(opener, {test: test}) : null
    }

    // What the error says with which a module turns away who isn't meant to use it.
    function barring(folder) {
        const inspection = inspectionOf(folder)
        return inspection && inspection.barring || ""
    }

    // How the dialogs of a folder are opened, all that have a page; each returns when the dialog has closed.
    function openings(folder) {
        const inspection = inspectionOf(folder)
        const found = []
        for (const dialog of Object.keys(Dlg.dlgMap)) {
            const page = Qt.resolvedUrl(Dlg.dlgMap[dialog])
            if (!page.startsWith(Qt.resolvedUrl(folder + "/")) || !isBuilt(page))
                continue
            for (const opening of inspection && inspection.openings(dialog) || [{}]) {
                opening.dialog = dialog
                opening.name = opening.label === undefined ? dialog : dialog + "/" + opening.label
                opening.open = () => Dlg.showDialog(dialog, opening.properties || {})
                found.push(opening)
            }
        }
        return found
    }
}
