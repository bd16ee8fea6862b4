import QtQuick 2.15
import QtQuick.Controls 2.15
import "../Components"

// What a technician tries first when a shop calls: printer, voice, lines, readers, and a file for who helps further.
Column {
    id: bench

    property QtObject vm: null
    property QtObject settings: null
    property Item form: null

    spacing: Theme.gap

    PlainText {
        text: "检测"
        font.pixelSize: Theme.titleSize
        font.bold: true
    }

    PlainText {
        text: "按本页现在的内容检测，不必先保存"
        font.pixelSize: Theme.captionSize
        color: Theme.textMuted
    }

    Row {
        spacing: Theme.gap

        Probe {
            width: form.cellWidth
            caption: "打印机"
            result: vm.printResult
            isBad: vm.printResult !== "" && !vm.isPrintGood && vm.isEnabled
            buttonName: "printTest"
            buttonText: "打印测试单"
            canRun: vm.isEnabled
            run: () => vm.printTest(settings)
        }

        Probe {
            width: form.cellWidth
            caption: "语音"
            result: vm.voiceResult
            buttonName: "voiceTest"
            buttonText: "试听"
            run: () => vm.voiceTest(settings)
        }

        Probe {
            width: form.cellWidth
            caption: "线路"
            result: vm.linesResult
            buttonName: "linesTest"
            buttonText: "测量线路"
            canRun: vm.isEnabled
            run: () => vm.measureLines()

            ListView {
                id: lines
                anchors.fill: parent
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                model: vm.pLineModel
                ScrollBar.vertical: ListScrollBar {
                    id: lineBar
                }
                delegate: PlainText {
                    objectName: "measured_" + index
                    width: lines.width - lineBar.width
                    height: Theme.px(28)
                    text: model.name + "  " + model.result
                    font.pixelSize: Theme.captionSize
                    color: model.isOk ? Theme.text : Theme.refusal
                }
            }
        }

        Probe {
            width: form.cellWidth
            caption: "诊断文件"
            result: vm.diagnosisResult
            buttonName: "diagnosisTest"
            buttonText: "生成诊断文件"
            canRun: vm.isEnabled
            run: () => vm.writeDiagnosis()
        }
    }

    Rectangle {
        width: form.spanned(4)
        height: Theme.px(330)
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.line

        PlainText {
            id: caption
            anchors.left: parent.left
            anchors.leftMargin: Theme.px(12)
            anchors.right: listen.left
            anchors.verticalCenter: listen.verticalCenter
            objectName: "readersState"
            text: vm.isReading ? "正在读卡：" + vm.readersResult : "读卡器：卡片内容会显示在这里，不会送到别处"
            leastSize: Theme.leastSize
        }

        PushButton {
            id: listen
            objectName: "readersTest"
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: Theme.px(10)
            width: Theme.px(220)
            height: Theme.px(56)
            pixelSize: Theme.textSize
            role: vm.isReading ? "accent" : "plain"
            text: vm.isReading ? "停止读卡" : "开始读卡"
            action: () => vm.isReading ? vm.stopReading() : vm.startReading(settings)
        }

        DataTable {
            objectName: "readings"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: listen.bottom
            anchors.bottom: parent.bottom
            anchors.margins: Theme.px(10)
            model: vm.pReadingModel
            emptyText: vm.isReading ? "请刷卡" : ""
            columns: [{title: "时间", role: "time", share: 0.1}, {title: "读卡器", role: "reader", share: 0.16},
                {title: "原始数据", role: "raw", share: 0.52}, {title: "卡号", role: "number", share: 0.22}]
        }
    }
}
