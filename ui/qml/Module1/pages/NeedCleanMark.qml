import QtQuick 2.15

// Whether the room that is left is to be cleaned.
CheckMark {
    property QtObject changer: null // the page's view-model, which holds the answer

    objectName: "needCleanButton"
    width: parent.width
    text: "原房间需要清扫"
    isChecked: changer.isNeedClean
    onClicked: changer.isNeedClean = !changer.isNeedClean
}
