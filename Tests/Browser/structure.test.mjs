// Every page is UTF-8, and a real browser's parser finds the elements where the page's own tags say they are: a tag
// too many, one too few or one where the parser does not let it stand would move what follows.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdirSync, readFileSync, readdirSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after, before, describe, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { gzipSync } from 'node:zlib';

import { hostileLines, hostileNames } from './hostile.mjs';
import { file, launch, pageFor } from './preview.mjs';

let browser;
let parser;
before(async () => {
    browser = await launch();
    parser = await browser.newPage();
});
after(() => browser.close());

const empty = new Set(['br', 'col', 'hr', 'img', 'input', 'meta']);

/** The names of the elements in order, indented by their depth, as the tags of `html` nest them. */
function written(html) {
    const open = [];
    const lines = [];
    const tags = html.replace(/<style>[^<]*<\/style>/, '<style></style>').matchAll(/<(\/?)([a-z][a-z0-9]*)[^>]*>/g);
    for (const [tag, isEnd, name] of tags) {
        if (isEnd) {
            assert.equal(open.pop(), name, `${tag} ends another element`);
        } else {
            lines.push(`${' '.repeat(open.length)}${name}`);
            if (!empty.has(name)) open.push(name);
        }
    }
    assert.deepEqual(open, [], 'elements without an end');
    return lines;
}

/** The same as the browser's parser finds them, without the bodies that it adds to tables that have no head. */
const parsed = (html) =>
    parser.evaluate((html) => {
        const found = [];
        const list = (element, depth) => {
            const isAdded = element.localName === 'tbody' && element.parentElement.tHead === null;
            if (!isAdded) found.push(`${' '.repeat(depth)}${element.localName}`);
            for (const child of element.children) list(child, isAdded ? depth : depth + 1);
        };
        list(new DOMParser().parseFromString(html, 'text/html').documentElement, 0);
        return found;
    }, html);

const textOf = (bytes) => new TextDecoder('utf-8', { fatal: true }).decode(bytes);

async function assertSound(path) {
    const html = textOf(readFileSync(await pageFor(path)));
    assert.deepEqual(await parsed(html), written(html));
}

test('the tests notice tags that do not nest', async () => {
    assert.throws(() => written('<p><b></p></b>'));
    assert.throws(() => written('<p><b></b>'));
    const nested = '<html><head></head><body><p><div></div></p></body></html>';
    assert.notDeepEqual(await parsed(nested), written(nested));
    assert.throws(() => textOf(Buffer.from([0xc3])));
});

const lines = hostileLines.join('\n');
const noText = Buffer.from('\xC3<b>\n\xF0\x9F<i>\n\xED\xA0\x80</pre>\n\0', 'latin1');

/** A folder that holds files of hostile names, folders and broken things. */
function garden() {
    const root = dirname(file('.root', ''));
    for (const name of hostileNames) {
        writeFileSync(join(root, name), lines);
        mkdirSync(join(root, `${name.slice(0, 40)}-folder`));
        writeFileSync(join(root, `${name.slice(0, 40)}-folder`, name), 'A line.\n');
    }
    writeFileSync(Buffer.concat([Buffer.from(`${root}/`), Buffer.from([0x61, 0xff, 0x3c, 0xc3])]), 'x');
    return root;
}

function archive(name, program, ...words) {
    const path = join(dirname(file('.place', '')), name);
    execFileSync(program, [...words, path, '.'], { cwd: garden(), stdio: 'ignore' });
    return path;
}

function emptyFolder() {
    const path = join(dirname(file('.place', '')), 'empty<b>');
    mkdirSync(path);
    return path;
}

function namedPipe() {
    const path = join(dirname(file('.place', '')), 'pipe<b>');
    execFileSync('mkfifo', [path]);
    return path;
}

describe('a page is UTF-8 and nests as it is written:', () => {
    const kinds = {
        'a text': () => file('a.txt', lines),
        'a source': () => file('a.c', lines),
        'an empty text': () => file('empty.txt', ''),
        'a text that is no UTF-8': () => file('broken.txt', noText.subarray(0, -1)),
        'a long text': () => file('long.txt', `${lines}\n`.repeat(2_000)),
        'a binary file': () => file('binary.bin', noText),
        'a named pipe': namedPipe,
        'a compressed text': () => file('a.txt.gz', gzipSync(lines)),
        'a compressed binary file': () => file('a.bin.gz', gzipSync(noText)),
        'a damaged archive': () => file('a.zip', 'PK\x03\x04'),
        'a cut archive': () => file('a.tar.gz', readFileSync(archive('b.tgz', 'tar', '-czf')).subarray(0, 700)),
        'an empty archive': () => file('a.zip', `PK\x05\x06${'\0'.repeat(18)}`),
        'a tar archive': () => archive('a.tar', 'tar', '-cf'),
        'a zip archive': () => archive('a.zip', 'zip', '-qr'),
        'a folder': garden,
        'an empty folder': emptyFolder,
    };
    for (const [what, make] of Object.entries(kinds)) {
        test(what, () => assertSound(make()));
    }

    for (const name of hostileNames) {
        test(`a file called ${JSON.stringify(name).slice(0, 60)}`, () => assertSound(file(name, lines)));
    }
});

/**
 * Constructs of Markdown, and what looks like them. Raw HTML nests as its author wrote it, so there is none. Nor are
 * there brackets by themselves: the dialect knows links in links, which the parser puts one behind the other.
 */
const pieces = [
    ...['*', '**', '_', '~~', '`', '``', '\\', '[*r*]', '[`a`](b "c")', '[^1]', ')', '&amp;', '"'],
    ...['www.a.b', 'https://c.d/', ' ', ' ', 'word', 'ä', '🌻', '|', '\n', '\n', '\n\n', '  \n'],
    ...['\n> ', '\n- ', '\n1. ', '\n    ', '\n# ', '\n***\n', '\n```\n', '\n[*r*]: x\n', '\n- [x] ', '\n\n  '],
    ...['\n|a|b|\n|-|:-|\n|', '\n===\n', '\n---\n', '[a](b)', '![a](b)', '\t', '\r\n', '\u00A0', '\u2028', '> '],
];

/** A number below `limit` that is the same in every run. */
function random(seed) {
    let state = seed;
    return (limit) => {
        state = (Math.imul(state, 1_664_525) + 1_013_904_223) >>> 0;
        return Math.floor((state / 2 ** 32) * limit);
    };
}

function randomMarkdown(seed) {
    const next = random(seed);
    const head = seed % 4 === 0 ? '---\na: b\n---\n' : '';
    return head + Array.from({ length: 400 }, () => pieces[next(pieces.length)]).join('');
}

describe('Markdown without raw HTML nests as it is written:', () => {
    for (let seed = 1; seed <= 40; ++seed) {
        test(`random document ${seed}`, () => assertSound(file('random.md', randomMarkdown(seed))));
    }
});

describe('the examples nest as they are written:', () => {
    const examples = fileURLToPath(new URL('../../Examples/', import.meta.url));
    for (const name of readdirSync(examples)) test(name, () => assertSound(join(examples, name)));
});

test('Markdown with raw HTML is UTF-8', async () => {
    const invalid = Buffer.concat([Buffer.from(hostileLines.join('\n\n')), noText]);
    for (const content of [hostileLines.join('\n\n'), invalid.subarray(0, -1)]) {
        assert.ok(textOf(readFileSync(await pageFor(file('hostile.md', content)))).includes('</html>'));
    }
});
