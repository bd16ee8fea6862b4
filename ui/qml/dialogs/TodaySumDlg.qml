import QtQuick 2.15
import QtQuick.Controls 2.15
import TodaySumVm 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// How many guests are inside, came and left today.
TitledDialog {
    id: dialog

    function exec() {
        wait()
    }

    objectName: "todaySumDlg"
    title: "今日指标"
    hasBack: true
    width: Theme.px(760)
    height: Theme.px(520)
    Component.onCompleted: JsFunc.delay15(() => sumVm && sumVm.init())

    TodaySumVm {
        id: sumVm
    }

    ListView {
        id: groups
        objectName: "todayGroups"
        anchors.fill: parent
        anchors.margins: Theme.spacing
        visible: !sumVm.isLoadFailed
        clip: true
        spacing: Theme.spacing
        boundsBehavior: Flickable.StopAtBounds
        model: sumVm.pTodaySumModel
        ScrollBar.vertical: ListScrollBar {}
        delegate: Rectangle {
            width: ListView.view.width - Theme.spacing
            height: texts.height + 2 * Theme.spacing
            radius: Theme.radius
            color: Theme.surface
            border.color: Theme.line

            Column {
                id: texts
                x: Theme.spacing
                y: Theme.spacing
                width: parent.width - 2 * Theme.spacing
                spacing: Theme.gap

                PlainText {
                    objectName: "todayHead_" + index
                    width: parent.width
                    text: model.typeName + " 【" + model.totalCount + "】"
                    font.pixelSize: Theme.titleSize
                }

                PlainText {
                    objectName: "todayContent_" + index
                    width: parent.width
                    text: model.content
                    wrapMode: Text.Wrap
                    elide: Text.ElideNone
                    color: Theme.textMuted
                }
            }
        }

        EmptyText {
            list: groups
            text: "没有数据"
        }
    }

    FailedLoad {
        visible: sumVm.isLoadFailed
        retry: () => sumVm.init()
    }
}
