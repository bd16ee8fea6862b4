import QtQuick 2.15
import QtQuick.Controls 2.15
import ServiceEvalVm 1.0
import "../../Components"

// A guest grades what he got, order by order or all at once. Each touch is stored; closing loses nothing.
DialogFrame {
    id: dialog

    property QtObject queue: null // the view-model of the call queue, which has found what there is to grade

    function exec() {
        wait()
    }

    objectName: "serviceEvalDlg"
    width: Theme.px(1100)
    height: Theme.px(660)
    Component.onCompleted: evalVm.init(queue)
    onEndSignal: evalVm.stopReading()

    ServiceEvalVm {
        id: evalVm
    }

    contentItem: Item {
        PlainText {
            id: head
            anchors.horizontalCenter: parent.horizontalCenter
            height: Theme.px(82) // the message of a touch leaves the grades free
            verticalAlignment: Text.AlignVCenter
            text: "请您给技师一点小小的建议"
            font.pixelSize: Theme.titleSize
        }

        ListView {
            id: orders
            objectName: "assessOrders"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: head.bottom
            anchors.bottom: quick.top
            anchors.leftMargin: Theme.spacing
            anchors.bottomMargin: Theme.gap
            clip: true
            spacing: Theme.gap
            boundsBehavior: Flickable.StopAtBounds
            model: evalVm.pAssessOrderModel
            ScrollBar.vertical: ListScrollBar {}
            delegate: Rectangle {
                id: order

                readonly property var grades: model.assessInfo
                readonly property string orderId: model.orderId
                readonly property string place: index

                width: ListView.view.width - Theme.spacing
                height: choice.height + 2 * Theme.px(10)
                radius: Theme.radius
                color: Theme.surface
                border.color: Theme.line

                PlainText {
                    objectName: "orderName_" + index
                    x: Theme.spacing
                    width: Theme.px(270)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: model.itemName
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    font.pixelSize: Theme.headSize
                }

                PlainText {
                    id: amount
                    x: Theme.px(300)
                    width: Theme.px(70)
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: "x " + model.num
                    font.pixelSize: Theme.headSize
                    color: Theme.textMuted
                }

                Flow {
                    id: choice
                    anchors.left: amount.right
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.spacing
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: Theme.gap

                    Repeater {
                        model: order.grades

                        GradeButton {
                            objectName: "grade_" + order.place + "_" + index
                            enabled: evalVm.isEnabled
                            text: model.assessName
                            isChosen: model.isChecked
                            action: () => evalVm.assess(index, model.assessId, order.orderId, order.grades)
                        }
                    }
                }
            }
        }

        Rectangle {
            id: quick
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: buttons.top
            anchors.margins: Theme.spacing
            anchors.bottomMargin: Theme.gap
            height: all.height + 2 * Theme.px(10)
            radius: Theme.radius
            color: Theme.keyPressed

            PlainText {
                x: Theme.spacing
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                text: "快速评价"
                font.pixelSize: Theme.headSize
            }

            Flow {
                id: all
                anchors.left: parent.left
                anchors.leftMargin: Theme.px(370)
                anchors.right: parent.right
                anchors.rightMargin: Theme.spacing
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.gap

                Repeater {
                    model: evalVm.pAssessModel

                    GradeButton {
                        objectName: "gradeAll_" + index
                        enabled: evalVm.isEnabled
                        text: model.assessName
                        action: () => {
                            if (evalVm.assessAll(model.assessId) && dialog)
                                dialog.finish(true)
                        }
                    }
                }
            }
        }

        Row {
            id: buttons
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.spacing
            spacing: Theme.px(40)

            PushButton {
                objectName: "closeButton"
                width: Theme.px(220)
                role: "plain"
                text: "关  闭"
                onClicked: dialog.finish(false)
            }

            PushButton {
                objectName: "confirmButton"
                width: Theme.px(220)
                text: "确  认"
                onClicked: dialog.finish(true)
            }
        }
    }
}
