import QtQuick 2.15
import MainClass 1.0
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// What the voice has still to say, or why it says nothing.
Row {
    id: mark

    readonly property bool isSilent: MainClass.voiceFault !== ""

    objectName: "voiceMark"
    spacing: Theme.px(6)

    IconText {
        anchors.verticalCenter: parent.verticalCenter
        iconText: mark.isSilent ? Glyphs.volumeOff : Glyphs.volume
        iconColor: mark.isSilent ? Theme.refusal : Theme.textMuted
        pixelSize: Theme.px(28)
    }

    PlainText {
        objectName: "voiceText"
        anchors.verticalCenter: parent.verticalCenter
        text: mark.isSilent ? MainClass.voiceFault : MainClass.voiceWaiting > 0 ? "待播 " + MainClass.voiceWaiting : ""
        color: mark.isSilent ? Theme.refusal : Theme.text
    }
}
