// Questions to the user. Each returns when it is answered, and undefined when it was called off.
.import "../qml/DlgManager.js" as Dlg

// What was typed.
function number(prompt) {
    const answer = Dlg.showDialog("numKeyDlg", {strText: prompt})
    return isGiven(answer) ? answer.inputText : undefined
}

// A hand card, typed or read: {cardNo, rfid}, of which one is empty. With a limit a prompt that nobody touches closes.
function card(prompt, limitMs) {
    const properties = {strText: prompt, isReadOk: true, readType: 1, limitMs: limitMs || 0}
    const answer = Dlg.showDialog("numKeyDlg", properties)
    return isGiven(answer) ? {cardNo: answer.inputText, rfid: answer.cardUid} : undefined
}

// The same for pages whose hand cards are read where the staff's are.
function cardOnStaffReader(prompt) {
    const answer = Dlg.showDialog("numKeyDlg", {strText: prompt, isReadOk: true})
    return isGiven(answer) ? {cardNo: answer.inputText, rfid: answer.cardUid} : undefined
}

// What was typed as a quantity; its worth is for the caller to judge.
function quantity(prompt) {
    const answer = Dlg.showDialog("numDlg", prompt === undefined ? {} : {strText: prompt})
    return isGiven(answer) ? answer.num : undefined
}

// The same of something counted: no till sells more than 9999 at once.
function count(prompt) {
    const answer = Dlg.showDialog("numDlg", {strText: prompt, mostDigits: 4})
    return isGiven(answer) ? answer.num : undefined
}

// Yes or no, above whatever is open.
function isConfirmed(question) {
    return isYes("msgConfirmDlg", question)
}

// The same of a page, in its own window.
function isConfirmedOnPage(question) {
    return isYes("confirmDlg", question)
}

function isYes(dialog, question) {
    return Dlg.showDialog(dialog, {titleText: "提示", contentText: question}) === true
}

function isGiven(answer) {
    return answer !== undefined && answer.dlgResult
}
