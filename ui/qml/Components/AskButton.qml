import QtQuick 2.15
import GlobalConfig 1.0
import "../../js/Ask.js" as Ask
import "../../js/Glyphs.js" as Glyphs

// Asks for a number by keys, its text being the prompt, and gives what was typed to take().
PushButton {
    id: button

    property var take: null
    property var work: waiting => waiting() // runs what waits in a way that keeps the page

    width: Theme.px(220)
    iconText: Glyphs.search
    role: "plain"
    pixelSize: Theme.headSize
    delay: GlobalConfig.dlgDeplyTime
    action: () => work(() => {
        const number = Ask.number(button.text)
        if (button && number !== undefined)
            button.take(number)
    })
}
