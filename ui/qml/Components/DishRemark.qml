import QtQuick 2.15

// A remark on something that is ordered.
RemarkArea {
    prompt: "请输入备注"
    phrases: ["少油", "少盐", "不辣", "加冰", "打包", "尽快上"]
}
