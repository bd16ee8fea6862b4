// Reads the bytes of printed slips with a parser of another maker's and compares texts, heights, feeds and cuts with
// the golden texts: node check_slips.js GOLDEN_FOLDER SLIPS_FOLDER, where the parser is in ./node_modules.
'use strict';

const assert = require('assert');
const fs = require('fs');
const modules = { paths: [process.cwd() + '/node_modules'] };
const npos = require(require.resolve('npos', modules));
const iconv = require(require.resolve('iconv-lite', modules));
const [goldenFolder, slipsFolder] = process.argv.slice(2);

/** What the golden text says about the paper; the rest are calls that leave no mark on it. */
function expected(name) {
    const lines = fs.readFileSync(`${goldenFolder}/${name}.txt`, 'utf8').trim().split('\n');
    return lines.filter(line => /^([12]\||feed|cut)/.test(line)).map(line => line.replace(/^cut 0 /, 'cut '));
}

/** The same, out of the parsed bytes. */
function printed(name) {
    const raw = fs.readFileSync(`${slipsFolder}/${name}.bin`);
    const ast = npos.parser().analyze(raw);
    assert.ifError(ast.error);
    const lines = [];
    let height = 1, feeds = 0, isChinese = false;
    const add = line => {
        if (feeds > 0)
            lines.push(feeds === 1 ? 'feed' : 'feed x' + feeds);
        feeds = 0;
        lines.push(line);
    };
    const commands = {
        'ESC@': () => { isChinese = false; height = 1; },
        'FS&': () => { isChinese = true; },
        'GS!': bytes => { height = bytes[2] % 16 + 1; },
        'GSV': bytes => add(bytes[2] === 65 ? 'cut ' + bytes[3] : 'unknown cut'),
        'STX': bytes => { // its name for text
            assert(isChinese, 'text before the printer is prepared');
            const texts = iconv.decode(bytes, 'gbk').split('\n');
            assert.strictEqual(texts.pop(), '', 'text that is never fed');
            texts.forEach(text => text === '' ? ++feeds : add(height + '|' + text + '|'));
        },
    };
    for (const node of ast.tree)
        commands[node.ascii + node.fn](raw.slice(node.offset, node.offset + node.length));
    assert.strictEqual(feeds, 0, 'feeds behind the cut');
    return lines;
}

const names = fs.readdirSync(slipsFolder).filter(file => file.endsWith('.bin')).map(file => file.slice(0, -4));
assert.strictEqual(names.length, 9);
for (const name of names)
    assert.deepStrictEqual(printed(name), expected(name), name);
