import QtQml 2.15

// What the self-test opens the transfer's dialog with.
QtObject {
    property var test: null

    function openings(dialog) {
        return dialog === "transferCardsDlg" ? [{properties: {strText: "请输入手牌号"}}] : undefined
    }
}
