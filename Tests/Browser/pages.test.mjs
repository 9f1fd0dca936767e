// Whole pages in Chromium: what a hostile name or content must not do, and how a page lies in its window.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after, before, describe, test } from 'node:test';

import { hostileLines, hostileNames, longestName } from './hostile.mjs';
import { assertNothingForeign, file, launch, leave, open, pageFor, sizeOf, textsBefore } from './preview.mjs';

let browser;
before(async () => {
    browser = await launch();
});
after(() => browser.close());

/** The preview of the item at `path`, open for the length of the test `t`. */
const preview = async (t, path, options) => {
    const page = await open(browser, await pageFor(path), options);
    t.after(() => leave(page));
    return page;
};

const textOf = (page, selector) => page.$eval(selector, (element) => element.textContent);
const textsOf = (page, selector) => page.$$eval(selector, (elements) => elements.map((element) => element.textContent));

describe('a hostile name', () => {
    for (const name of hostileNames) {
        for (const [kind, content] of [
            ['text', 'A line.\n'],
            ['message', 'A binary file.\0\n'],
        ]) {
            test(`stays a name on a ${kind} page: ${JSON.stringify(name).slice(0, 60)}`, async (t) => {
                const page = await preview(t, file(name, content), { scripts: true });
                assert.equal(await textOf(page, 'h1'), name);
                assert.equal(await textOf(page, 'title'), name);
                await assertNothingForeign(page);
            });
        }
    }
});

describe('hostile names', () => {
    const garden = dirname(file('plain.txt', 'A line.\n'));
    for (const name of hostileNames) writeFileSync(join(garden, name), 'A line.\n');
    const archive = file('names.tar', '');
    execFileSync('tar', ['--create', '--file', archive, '--directory', garden, '.']);

    for (const [what, path] of [
        ['a folder', garden],
        ['an archive', archive],
    ]) {
        test(`stay names on the page of ${what} that holds them`, async (t) => {
            await assertNothingForeign(await preview(t, path, { scripts: true }));
        });
    }
});

describe('hostile contents', () => {
    for (const extension of ['txt', 'html', 'svg', 'js', 'unknown']) {
        test(`stay text in a .${extension} file`, async (t) => {
            const path = file(`hostile.${extension}`, hostileLines.join('\n'));
            const page = await preview(t, path, { scripts: true });
            assert.deepEqual(await textsOf(page, '.code-view .line'), hostileLines);
            await assertNothingForeign(page);
        });
    }

    test('that are no UTF-8 stay text', async (t) => {
        const path = file(
            'broken.txt',
            Buffer.from('\xC3<script>alert(1)</script>\n\xF0\x9F<b>\n\xED\xA0\x80', 'latin1'),
        );
        const page = await preview(t, path, { scripts: true });
        assert.deepEqual(await textsOf(page, '.code-view .line'), [
            '\uFFFD<script>alert(1)</script>',
            '\uFFFD<b>',
            '\uFFFD\uFFFD\uFFFD',
        ]);
        await assertNothingForeign(page);
    });

    // A picture from elsewhere is part of a Markdown document, so only what is no picture is tried.
    test('run nothing and load nothing as Markdown', async (t) => {
        const lines = hostileLines.filter((line) => !line.includes('pixel.png'));
        const path = file('hostile.md', lines.join('\n\n'));
        const page = await preview(t, path, { scripts: true });
        assert.deepEqual(page.happenings, []);
        assert.equal(await page.$$eval('script, iframe, link, meta[http-equiv=refresh]', (found) => found.length), 0);
    });
});

test('a page forbids by itself what no page should hold', async (t) => {
    const honest = readFileSync(await pageFor(file('notes.txt', 'A line.')), 'utf8');
    const intruders = `
<script>alert('element')</script>
<script src="https://example.com/script.js"></script>
<link rel="stylesheet" href="https://example.com/style.css">
<img src="x" onerror="alert('attribute')">
<iframe src="https://example.com/"></iframe>
<object data="https://example.com/"></object>
<form action="https://example.com/"><button id="send">Send</button></form>`;
    const page = await open(browser, file('page.html', honest.replace('</body>', `${intruders}</body>`)), {
        scripts: true,
    });
    t.after(() => leave(page));
    // Its own folder is no more open to a page than the network is.
    assert.deepEqual(page.happenings, []);
});

describe('the lines of a text', () => {
    for (const [what, text, expected] of [
        ['with a line feed at the end', 'a\nb\n', ['a', 'b']],
        ['without a line feed at the end', 'a\nb', ['a', 'b']],
        ['with empty lines', 'a\n\n\nb\n', ['a', ' ', ' ', 'b']],
        ['that is empty', '', [' ']],
        ['that is one line feed', '\n', [' ']],
    ]) {
        test(`are numbered from one, in a text ${what}`, async (t) => {
            const page = await preview(t, file('lines.c', text));
            assert.deepEqual(await textsOf(page, '.code-view .line'), expected);
            const numbers = (await textsBefore(page)).map((number) => number.text);
            assert.deepEqual(
                numbers,
                expected.map((_, index) => String(index + 1)),
            );
        });
    }

    for (const [what, name] of [
        ['scrolling', 'lines.c'],
        ['wrapping', 'lines.txt'],
    ]) {
        test(`are equally high in a ${what} text, whatever ends them`, async (t) => {
            const page = await preview(t, file(name, 'unix\nwindows\r\n\r\n\nlast\r\n'));
            const heights = await page.$$eval('.code-view .line', (lines) =>
                lines.map((line) => Math.round(line.getBoundingClientRect().height * 10) / 10),
            );
            assert.deepEqual(heights, [18.6, 18.6, 18.6, 18.6, 18.6]);
        });
    }

    test('end at ten thousand', async (t) => {
        const page = await preview(t, file('lines.log', 'x\n'.repeat(10_001)));
        assert.equal((await textsOf(page, '.code-view .line')).length, 10_000);
        assert.deepEqual(await textsOf(page, '.notice'), ['Showing the first 10,000 lines.']);
        assert.equal((await textsBefore(page)).at(-1).text, '10000');
    });

    test('keep their numbers apart from the text when copied', async (t) => {
        const page = await preview(t, file('lines.c', 'one\ntwo\n'), { scripts: true });
        const copied = await page.evaluate(() => {
            getSelection().selectAllChildren(document.querySelector('.code-view'));
            return getSelection().toString();
        });
        assert.deepEqual(copied.split(/\n+/).filter(Boolean), ['one', 'two']);
    });
});

describe('a window of 900 by 700', () => {
    const size = { width: 900, height: 700 };

    for (const [what, name, content] of [
        ['a wrapped text', 'long.txt', 'word '.repeat(5000) + '\n' + 'x'.repeat(20_000)],
        ['source code', 'long.c', 'x'.repeat(20_000)],
        ['a long name', `${longestName}.txt`, 'A line.'],
        ['a message with a long name', `${longestName}.bin`, '\0'],
        ['a long word in Markdown', 'long.md', 'x'.repeat(20_000)],
        [
            'a wide table in Markdown',
            'wide.md',
            ['|a'.repeat(99), '|-'.repeat(99), `|${'x'.repeat(30)}`.repeat(99)].join('\n'),
        ],
    ]) {
        test(`is not overflown by ${what}`, async (t) => {
            const page = await preview(t, file(name, content), { size });
            const widths = await page.evaluate(() => [document.documentElement.scrollWidth, document.body.scrollWidth]);
            assert.deepEqual(widths, [900, 900]);
        });
    }

    test('lets source code scroll sideways by itself', async (t) => {
        const page = await preview(t, file('long.c', 'x'.repeat(20_000)), { size });
        assert.ok(await page.$eval('.code-view', (view) => view.scrollWidth > 10_000 && view.clientWidth === 900));
    });

    test('is the size for texts', async () => {
        assert.deepEqual(await sizeOf(file('notes.txt', 'A line.')), size);
    });
});

for (const [scheme, background, foreground] of [
    ['light', 'rgb(255, 255, 255)', 'rgb(10, 10, 10)'],
    ['dark', 'rgb(10, 10, 10)', 'rgb(255, 255, 255)'],
]) {
    for (const [kind, name, content] of [
        ['text', 'notes.txt', 'A line.'],
        ['Markdown', 'notes.md', '# Notes'],
        ['message', 'data.bin', '\0'],
    ]) {
        test(`a ${kind} page is ${scheme} where everything is`, async (t) => {
            const page = await preview(t, file(name, content), { scheme });
            for (const selector of ['html', 'body']) {
                const style = await page.$eval(selector, (element) => {
                    const { backgroundColor, color } = getComputedStyle(element);
                    return { backgroundColor, color };
                });
                assert.deepEqual(style, { backgroundColor: background, color: foreground });
            }
        });
    }
}

for (const size of [
    { width: 900, height: 700 },
    { width: 520, height: 380 },
]) {
    test(`a message stands in the middle of ${size.width} by ${size.height}`, async (t) => {
        const page = await preview(t, file('data.bin', '\0'), { size });
        const place = await page.evaluate(() => {
            const parts = [...document.querySelectorAll('.message > *')].map((part) => part.getBoundingClientRect());
            return {
                middles: parts.map(({ left, right }) => (left + right) / 2),
                top: parts[0].top,
                bottom: parts.at(-1).bottom,
                fits: document.documentElement.scrollHeight <= innerHeight,
            };
        });
        for (const middle of place.middles) assert.ok(Math.abs(middle - size.width / 2) <= 1);
        assert.ok(Math.abs((place.top + place.bottom) / 2 - size.height * 0.4) <= 1, 'in the middle of the upper 80 %');
        assert.ok(place.fits);
    });
}
