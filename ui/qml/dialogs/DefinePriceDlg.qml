import QtQuick 2.15
import "../Components"
import "../../js/Ask.js" as Ask

// The price of an item that is sold at the day's price.
ItemDialog {
    id: dialog

    property double definePrice: 0

    function exec() {
        wait()
        return {dlgResult: dlgResult, num: itemNum, price: definePrice, remark: remarkArea.text}
    }

    objectName: "definePriceDlg"
    title: "选择规格"
    height: Theme.px(540)

    PickField {
        id: priceField
        objectName: "priceField"
        label: "时价"
        labelWidth: Theme.px(70)
        prompt: "请输入价格"
        text: dialog.definePrice > 0 ? "¥" + dialog.definePrice.toFixed(2) : ""
        action: () => {
            const typed = Ask.quantity("请输入价格")
            if (typed !== undefined && dialog)
                dialog.definePrice = Number(typed) || 0
        }
    }

    DishRemark {
        id: remarkArea
        width: parent.width
        anchors.top: priceField.bottom
        anchors.topMargin: Theme.spacing
        anchors.bottom: parent.bottom
    }
}
