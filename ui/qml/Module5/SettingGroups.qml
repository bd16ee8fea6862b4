import QtQuick 2.15
import "../Components"

// The settings in tiles that flow across the screen.
Flow {
    id: groups

    property QtObject vm: null
    property Item form: null

    readonly property int cell: form.cellWidth
    readonly property string countPrompt: "请输入数量"

    function portNote(name) {
        return name === "" || vm.isPortThere(name) ? "" : "  未连接"
    }

    // What a box shows of the entry at this position.
    function chosen(list, index) {
        return index >= 0 && index < list.length ? list[index] : "未选择"
    }

    function chosenOf(model, index) {
        const text = index < 0 ? "" : model.data(model.index(index, 0), 257)
        return text === undefined || text === "" ? "未选择" : text
    }

    spacing: Theme.gap

    SettingGroup {
        caption: "打印机配置"
        columns: 2
        form: groups.form

        SettingTile {
            objectName: "set_print"
            width: groups.cell
            label: "打印机名称"
            value: groups.chosenOf(vm.pPrintModel, vm.printIndex)
            mark: vm.marks.print || ""
            action: () => groups.form.choose(label, vm.pPrintModel, "printIndex")
        }

        SettingTile {
            objectName: "set_print_mode"
            width: groups.cell
            label: "打印机属性"
            value: groups.chosenOf(vm.pPrintModeModel, vm.printModeIndex)
            mark: vm.marks.print_mode || ""
            action: () => groups.form.choose(label, vm.pPrintModeModel, "printModeIndex")
        }
    }

    SettingGroup {
        caption: "技师参数"
        form: groups.form

        SettingTile {
            objectName: "set_js_assign_type"
            width: groups.cell
            label: "默认起钟类型"
            value: groups.chosen(["点 钟", "轮 钟", "选 钟"], vm.jsAssIndex)
            mark: vm.marks.js_assign_type || ""
            action: () => groups.form.choose(label, clockKinds, "jsAssIndex")

            ListModel {
                id: clockKinds
                ListElement { name: "点 钟" }
                ListElement { name: "轮 钟" }
                ListElement { name: "选 钟" }
            }
        }
    }

    SettingGroup {
        caption: "TTS配置"
        columns: 4
        form: groups.form

        SettingTile {
            objectName: "set_is_use_tts"
            width: groups.cell
            label: "启用TTS"
            isCheck: true
            isChecked: vm.isUseTts
            mark: vm.marks.is_use_tts || ""
            onClicked: vm.isUseTts = !vm.isUseTts
        }

        SettingTile {
            objectName: "set_tts_language"
            width: groups.cell
            label: "语   言"
            value: groups.chosen(vm.langList, vm.langIndex)
            mark: vm.marks.tts_language || ""
            action: () => groups.form.choose(label, vm.pLangModel, "langIndex")
        }

        SettingTile {
            objectName: "set_tts_voice"
            width: groups.cell
            label: "语音库"
            value: groups.chosen(vm.voiceList, vm.voiceIndex)
            mark: vm.marks.tts_voice || ""
            action: () => groups.form.choose(label, vm.pVoiceModel, "voiceIndex")
        }

        SettingTile {
            objectName: "set_tts_speed"
            width: groups.cell
            label: "语   速"
            value: vm.speed
            note: "引擎范围 -1 到 1"
            isAlert: vm.speed < -1 || vm.speed > 1
            mark: vm.marks.tts_speed || ""
            action: () => groups.form.enter("speed", "请输入语速[>100为负数 101表示-1]")
        }
    }

    SettingGroup {
        caption: "读卡器配置"
        columns: 4
        form: groups.form

        SettingTile {
            objectName: "set_staff_device_com"
            width: groups.cell
            label: "员工读卡器串口"
            value: groups.chosen(vm.comList, vm.comIndex)
            note: groups.portNote(vm.comIndex < 0 ? "" : vm.comList[vm.comIndex]).trim()
            isAlert: true
            mark: vm.marks.staff_device_com || ""
            action: () => groups.form.choose(label, vm.pComModel, "comIndex", groups.portNote)
        }

        SettingTile {
            objectName: "set_hand_card_device"
            width: groups.cell
            label: "手牌读卡器类型"
            value: groups.chosen(vm.handList, vm.handIndex)
            mark: vm.marks.hand_card_device || ""
            action: () => groups.form.choose(label, vm.pHandModel, "handIndex")
        }

        SettingTile {
            objectName: "set_hand_card_com"
            width: groups.cell
            label: "手牌读卡器串口"
            value: groups.chosen(vm.comList, vm.handComIndex)
            note: groups.portNote(vm.handComIndex < 0 ? "" : vm.comList[vm.handComIndex]).trim()
            isAlert: true
            mark: vm.marks.hand_card_com || ""
            action: () => groups.form.choose(label, vm.pComModel, "handComIndex", groups.portNote)
        }

        SettingTile {
            objectName: "set_is_rfid_8"
            width: groups.cell
            visible: vm.isVisRfid8
            label: "8位16进制"
            isCheck: true
            isChecked: vm.isRfid8
            mark: vm.marks.is_rfid_8 || ""
            onClicked: vm.isRfid8 = !vm.isRfid8
        }
    }

    SettingGroup {
        caption: "打印参数"
        columns: 4
        form: groups.form

        SettingTile {
            objectName: "set_is_single_print"
            width: groups.cell
            label: "录单分单打印"
            isCheck: true
            isChecked: vm.isSinglePrint
            mark: vm.marks.is_single_print || ""
            onClicked: vm.isSinglePrint = !vm.isSinglePrint
        }

        SettingTile {
            objectName: "set_is_open_room_print"
            width: groups.cell
            label: "开房打印入住单"
            isCheck: true
            isChecked: vm.isOpenRoomPrint
            mark: vm.marks.is_open_room_print || ""
            onClicked: vm.isOpenRoomPrint = !vm.isOpenRoomPrint
        }

        SettingTile {
            objectName: "set_stop_server_print_count"
            width: groups.cell
            label: "停钟打印份数"
            value: vm.stopServerCount
            mark: vm.marks.stop_server_print_count || ""
            action: () => groups.form.enter("stopServerCount", groups.countPrompt)
        }

        SettingTile {
            objectName: "set_leave_room_print_count"
            width: groups.cell
            label: "离房打印份数"
            value: vm.leaveRoomCount
            mark: vm.marks.leave_room_print_count || ""
            action: () => groups.form.enter("leaveRoomCount", groups.countPrompt)
        }
    }

    SettingGroup {
        caption: "显示列数"
        columns: 4
        form: groups.form

        SettingTile {
            objectName: "set_cons_item_count"
            width: groups.cell
            label: "消费录入列数"
            value: vm.consItemCount
            mark: vm.marks.cons_item_count || ""
            action: () => groups.form.enter("consItemCount", groups.countPrompt)
        }

        SettingTile {
            objectName: "set_js_item_count"
            width: groups.cell
            label: "技师项目列数"
            value: vm.jsItemCount
            mark: vm.marks.js_item_count || ""
            action: () => groups.form.enter("jsItemCount", groups.countPrompt)
        }

        SettingTile {
            objectName: "set_room_item_count"
            width: groups.cell
            label: "房态显示列数"
            value: vm.roomItemCount
            mark: vm.marks.room_item_count || ""
            action: () => groups.form.enter("roomItemCount", groups.countPrompt)
        }

        SettingTile {
            objectName: "set_is_small_img_mode"
            width: groups.cell
            label: "消费录入小图模式"
            isCheck: true
            isChecked: vm.isSmallImgMode
            mark: vm.marks.is_small_img_mode || ""
            onClicked: vm.isSmallImgMode = !vm.isSmallImgMode
        }
    }

    SettingGroup {
        caption: "助浴TTS内容"
        columns: 4
        form: groups.form

        CallTemplate {
            width: groups.form.spanned(3)
            height: Theme.px(176)
            vm: groups.vm
        }

        SettingTile {
            objectName: "set_call_count"
            width: groups.cell
            label: "播报次数"
            value: vm.callCount
            mark: vm.marks.call_count || ""
            action: () => groups.form.enter("callCount", groups.countPrompt)
        }
    }
}
