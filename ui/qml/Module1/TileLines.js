.pragma library

// Which of a tile's small texts show, how large and in how many rows. They come by rank, the first being lost last.

const separator = "\u001f"
const cards = 0, technicians = 1, amount = 2, remark = 3, group = 4, ended = 5, service = 6, kinds = 7
const below = [cards, technicians, ended, service] // in one text, below those that have one of their own
const none = {size: 14, height: 15, rows: 0, amount: "", remark: "", remarkRows: 1, group: "", below: "", belowRows: 1}

// In heights of the letters: Chinese is as wide as high, for the others rather too much than too little.
function widthOf(code) {
    if (code >= 0x2e80)
        return 1
    if (code >= 0x30 && code <= 0x39)
        return 0.57
    return code === 0x20 || code === 0x2c || code === 0x2e || code === 0x3a ? 0.3 : 0.68
}

// A row ends where a text may be broken: behind Chinese, a blank or a comma.
function rowsOf(text, rowWidth) {
    let rows = 1
    let used = 0
    let word = 0
    for (let i = 0; i < text.length; ++i) {
        const code = text.charCodeAt(i)
        word += widthOf(code)
        if (code < 0x2e80 && code !== 0x20 && code !== 0x2c && i < text.length - 1 && word < rowWidth)
            continue
        if (used + word > rowWidth && used > 0) {
            ++rows
            used = 0
        }
        used += word
        word = 0
    }
    return rows
}

function rowsWanted(texts, rowWidth) {
    const wanted = []
    for (let kind = 0; kind < kinds; ++kind) {
        const isOneRow = kind === amount || kind === group
        wanted.push(texts[kind] === "" ? 0 : isOneRow ? 1 : rowsOf(texts[kind], kind === remark ? rowWidth - 0.6 : rowWidth))
    }
    return wanted
}

function sum(numbers) {
    return numbers.reduce((all, number) => all + number, 0)
}

// Gives each its rows, in place; what is left out whole gets none. Returns whether there was such.
function share(wanted, rows) {
    let isLost = false
    let left = rows
    for (let kind = 0; kind < kinds; ++kind) {
        const want = wanted[kind]
        // A long remark leaves a row to each that comes behind it.
        const behind = kind === remark ? wanted.slice(remark + 1).filter(other => other > 0).length : 0
        wanted[kind] = Math.min(want, Math.max(left - behind, Math.min(left, 1)))
        left -= wanted[kind]
        isLost = isLost || wanted[kind] < Math.min(want, 1)
    }
    return isLost
}

// The largest of the sizes, which fall, at which all fits; else what fits at the last. Width and height are in pixels.
function plan(lines, width, height, sizes) {
    if (lines === "")
        return none
    const texts = lines.split(separator)
    let size, lineHeight, rows, got
    for (size of sizes) {
        lineHeight = Math.floor(size * 1.1)
        rows = Math.max(1, Math.floor(height / lineHeight))
        got = rowsWanted(texts, width / size)
        if (sum(got) <= rows)
            break
    }
    const isLost = share(got, rows)
    const shown = below.filter(kind => got[kind] > 0)
    const result = {
        size: size,
        height: lineHeight,
        rows: sum(got),
        amount: got[amount] > 0 ? texts[amount] : "",
        remark: got[remark] > 0 ? texts[remark] : "",
        remarkRows: Math.max(1, got[remark]),
        group: got[group] > 0 ? texts[group] : "",
        below: shown.map(kind => texts[kind]).join("\n").replace(/,/g, ",\u200b"),
        belowRows: Math.max(1, sum(shown.map(kind => got[kind])))
    }
    if (isLost)
        result[["below", "group", "remark", "amount"].find(part => result[part] !== "")] += " …"
    return result
}
