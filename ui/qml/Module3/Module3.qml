import QtQuick 2.15
import QtQuick.Controls 2.15
import Module3Vm 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// The technician's clock: the page of what he is doing now.
Item {
    id: page

    property string staffNo: "" // who has logged in

    readonly property var pages: ({1: "pages/UpServerPage.qml", 2: "pages/DownServerPage.qml"})

    function close() {
        const view = page.StackView.view
        if (view && view.currentItem === page)
            view.pop()
    }

    function load() {
        clock.init(staffNo)
    }

    objectName: "Module3"
    Component.onCompleted: JsFunc.timerOnce(50, () => page && page.load())

    Module3Vm {
        id: clock
        onSetLoaderSignal: loader.setSource(page.pages[operStatus], {module: clock, close: page.close})
        onOnCloseSignal: JsFunc.delay15(() => page && page.close())
    }

    Loader {
        id: loader
        anchors.fill: parent
    }

    FailedLoad {
        visible: clock.operStatus === 0 && clock.isLoadFailed
        retry: page.load
    }
}
