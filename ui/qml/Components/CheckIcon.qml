import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// The box of a check box.
IconText {
    property bool isChecked: false

    iconText: isChecked ? Glyphs.checkBoxChecked : Glyphs.checkBoxUnchecked
    iconColor: isChecked ? Theme.accent : Theme.textMuted
    pixelSize: 28
}
