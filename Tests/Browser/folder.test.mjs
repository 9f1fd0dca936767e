// Pages of real folders in Chromium: rows, bars, long names, and what could not be measured.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { chmodSync, mkdirSync, symlinkSync, truncateSync, utimesSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after, before, describe, test } from 'node:test';

import { assertNothingForeign, file, launch, leave, open, pageFor, sizeOf } from './preview.mjs';

let browser;
before(async () => {
    browser = await launch();
});
after(() => browser.close());

const size = { width: 780, height: 620 };

const show = async (t, page, options) => {
    const shown = await open(browser, page, { size, ...options });
    t.after(() => leave(shown));
    return shown;
};

/** The page of the folder at `path`, open for the length of the test `t`. */
const preview = async (t, path, options) => show(t, await pageFor(path), options);

/** A new folder of files, by path: so many bytes, or text; an object is the target of a link. */
function garden(contents) {
    const root = join(dirname(file('.place', '')), 'Garden');
    mkdirSync(root);
    for (const [path, content] of Object.entries(contents)) {
        const place = join(root, path);
        mkdirSync(dirname(place), { recursive: true });
        if (typeof content === 'object') symlinkSync(content.link, place);
        else writeFileSync(place, typeof content === 'string' ? content : '');
        if (typeof content === 'number') truncateSync(place, content); // takes no room
        if (typeof content !== 'object') utimesSync(place, 1_709_543_700, 1_709_543_700); // 2024-03-04
    }
    return root;
}

/** The page of a folder with one in it that cannot be opened. */
function incompletePage() {
    const root = garden({ 'rose.txt': 2_000, 'Beds/tulip.txt': 1_000, 'Locked/secret.txt': 5_000 });
    const locked = join(root, 'Locked');
    const others = [dirname(dirname(root)), dirname(root), root, join(root, 'Beds')];
    const page = file('page.html', '');
    chmodSync(locked, 0);
    try {
        const words = ['--html', '-', root];
        const options = { encoding: 'utf8', stdio: ['ignore', 'pipe', 'inherit'] };
        // Permissions do not bind root.
        const isRoot = process.getuid() === 0;
        if (isRoot) for (const place of others) chmodSync(place, 0o755);
        const nobody = isRoot ? { uid: 65_534, gid: 65_534 } : {};
        writeFileSync(page, execFileSync(process.env.QUILLMAR_BINARY, words, { ...options, ...nobody }));
    } finally {
        chmodSync(locked, 0o700);
    }
    return page;
}

const everyRow = '.list > .row:not(.heading)';

/** Name, size and date of every row as they show. */
const textsOf = (page) =>
    page.$$eval(everyRow, (rows) =>
        rows.map((row) => [
            row.querySelector('.name > span:not([class])').textContent,
            [...row.querySelector('.size').childNodes].map((node) => node.textContent).join(''),
            row.querySelector('.date').textContent,
        ]),
    );

/** The places of all cells of all rows, the heading among them. */
const cellsOf = (page) =>
    page.$$eval('.list > .row', (rows) =>
        rows.map((row) =>
            [...row.children].map((cell) => {
                const { left, right, top, bottom } = cell.getBoundingClientRect();
                return { left, right, top, bottom };
            }),
        ),
    );

const near = (actual, expected, what) =>
    assert.ok(Math.abs(actual - expected) <= 0.5, `${what}: ${actual}, ${expected}`);

const widthsOf = (page) =>
    page.evaluate(() => [document.documentElement.scrollWidth, document.body.scrollWidth]);

const mixed = {
    'film.mp4': 8_000_000_000,
    'Photos/rose.png': 4_000_000_000,
    'song.flac': 3_000_000_000,
    'main.c': 'int main() {}\n',
    empty: '',
    link: { link: 'main.c' },
    '.hidden': 1_000,
};

for (const scheme of ['light', 'dark']) {
    describe(`rows in the ${scheme}`, () => {
        test('stand in order, the largest first, without what is hidden', async (t) => {
            const page = await preview(t, garden(mixed), { scheme });
            const texts = await textsOf(page);
            assert.deepEqual(
                texts.map(([name, size]) => [name, size]),
                [
                    ['film.mp4', '8 GB'],
                    ['Photos', '4 GB'],
                    ['song.flac', '3 GB'],
                    ['main.c', '14 bytes'],
                    ['link', '6 bytes'],
                    ['empty', 'Zero KB'],
                ],
            );
            assert.match(texts[0][2], /2024/);
        });

        test('are aligned under their headings', async (t) => {
            const page = await preview(t, garden(mixed), { scheme });
            const [[name, size, date], ...rows] = await cellsOf(page);
            assert.equal(rows.length, 6);
            for (const [rowName, rowSize, rowDate] of rows) {
                near(rowName.left, name.left, 'left of the name');
                near(rowSize.left, size.left, 'left of the size');
                near(rowSize.right, size.right, 'right of the size');
                near(rowDate.right, date.right, 'right of the date');
                assert.ok(rowName.right <= rowSize.left && rowSize.right <= rowDate.left);
            }
        });

        test('lie one below the other, all equally high', async (t) => {
            const page = await preview(t, garden(mixed), { scheme });
            const rows = await page.$$eval(everyRow, (rows) =>
                rows.map((row) => row.getBoundingClientRect()).map(({ top, bottom }) => ({ top, bottom })),
            );
            for (let i = 1; i < rows.length; ++i) near(rows[i].top, rows[i - 1].bottom, 'top of the row');
            assert.equal(new Set(rows.map(({ top, bottom }) => Math.round(bottom - top))).size, 1);
        });

        test('carry bars as wide as their share of the largest', async (t) => {
            const page = await preview(t, garden(mixed), { scheme });
            const bars = await page.$$eval(`${everyRow} .size`, (cells) =>
                cells.map((cell) => {
                    const track = cell.querySelector('small').getBoundingClientRect();
                    const bar = cell.querySelector('i').getBoundingClientRect();
                    const text = cell.getBoundingClientRect();
                    return {
                        share: bar.width / text.width,
                        fillsCell: track.left === text.left && track.width === text.width,
                        endsRight: Math.abs(bar.right - track.right) < 0.1,
                        isInRow: track.bottom <= cell.closest('.row').getBoundingClientRect().bottom,
                        colours: ['small', 'i']
                            .map((name) => getComputedStyle(cell.querySelector(name)))
                            .map((style) => style.backgroundColor),
                    };
                }),
            );
            const expected = [1, 0.5, 0.375, 0, 0, 0];
            bars.forEach((bar, i) => {
                assert.ok(Math.abs(bar.share - expected[i]) < 0.001, `bar ${i}: ${bar.share}`);
                assert.ok(bar.fillsCell && bar.endsRight && bar.isInRow, `bar ${i}`);
                assert.notEqual(bar.colours[0], bar.colours[1]);
            });
        });

        test('of what was not measured carry a muted dash and no bar, and a notice says so', async (t) => {
            const page = await show(t, incompletePage(), { scheme });
            assert.deepEqual(
                (await textsOf(page)).map(([name, size]) => [name, size]),
                [
                    ['rose.txt', '2 KB'],
                    ['Beds', '1 KB'],
                    ['Locked', '—'],
                ],
            );
            const [dash, bar, colours] = await page.$eval(`${everyRow}:last-child .size`, (cell) => [
                cell.querySelector('.muted').getBoundingClientRect().width,
                cell.querySelector('i').getBoundingClientRect().width,
                [cell.querySelector('.muted'), cell].map((element) => getComputedStyle(element).color),
            ]);
            assert.ok(dash > 5);
            assert.equal(bar, 0);
            assert.notEqual(colours[0], colours[1]);
            const notice = await page.$('.notice');
            assert.ok(await notice.isVisible());
            assert.match(await notice.textContent(), /^This folder is too big to measure completely in a preview\./);
            assert.equal(await page.$eval('.hero b', (figure) => figure.textContent), '≥ 3 KB');
            assert.match(await page.$eval('.facts', (facts) => facts.textContent), /At least 3 KB/);
        });
    });
}

describe('long names', () => {
    const names = {
        [`${'w'.repeat(250)}.png`]: 8_000_000_000,
        [`${'漢字 '.repeat(35)}.txt`]: 999_000_000,
        [`${'W'.repeat(255)}/x`]: 4_000,
        short: 10,
    };

    for (const width of [780, 420]) {
        test(`end in an ellipsis at ${width} px and leave size and date in place`, async (t) => {
            const page = await preview(t, garden(names), { size: { width, height: 620 } });
            const isCut = await page.$$eval(`${everyRow} .name > span:not([class])`, (elements) =>
                elements.map((name) => [name.scrollWidth > name.clientWidth, getComputedStyle(name).textOverflow]),
            );
            assert.deepEqual(isCut, [
                [true, 'ellipsis'],
                [true, 'ellipsis'],
                [true, 'ellipsis'],
                [false, 'ellipsis'],
            ]);
            const [[, heading], ...rows] = await cellsOf(page);
            for (const [name, size, date] of rows) {
                assert.ok(name.right - name.left > 60, 'something of the name is seen');
                near(size.right, heading.right, 'right of the size');
                assert.ok(name.right <= size.left && size.right <= date.left && date.right <= width);
            }
        });
    }
});

describe('nothing scrolls sideways', () => {
    const crowded = Object.fromEntries(Array.from({ length: 1_005 }, (_, i) => [`${i + 1}.txt`, 'A line.\n']));
    for (const width of [780, 420]) {
        for (const [what, page] of [
            ['a mixed folder', () => pageFor(garden(mixed))],
            ['long names', () => pageFor(garden({ ['W'.repeat(255)]: 8_000_000, [`${'x'.repeat(255)}/y`]: '' }))],
            ['a folder measured in part', async () => incompletePage()],
            ['an empty folder', () => pageFor(garden({ '.hidden': 'x' }))],
            ['1,005 items', () => pageFor(garden(crowded))],
        ]) {
            test(`at ${width} px for ${what}`, async (t) => {
                const shown = await show(t, await page(), { size: { width, height: 620 } });
                assert.deepEqual(await widthsOf(shown), [width, width]);
            });
        }
    }
});

test('the last row counts what is left out', async (t) => {
    const page = await preview(t, garden(Object.fromEntries(Array.from({ length: 1_006 }, (_, i) => [`${i}`, 'x']))));
    assert.equal(await page.$$eval('.row .name', (rows) => rows.length), 1_000);
    const last = await page.$('.list > .row:last-child');
    assert.equal(await last.textContent(), 'and 6 more items');
    assert.ok(await last.isVisible());
});

test('a folder of hidden items says that it is empty', async (t) => {
    const page = await preview(t, garden({ '.a': 3_000, '.b': 1_000 }));
    assert.deepEqual(await page.$$eval('.notice', (all) => all.map((notice) => notice.textContent)), [
        'This folder is empty.',
    ]);
    assert.match(await page.$eval('.facts', (facts) => facts.textContent), /^0 items·4 KB·2 hidden·Modified /);
    assert.equal(await page.$('.list'), null);
});

describe('names', () => {
    const names = [
        '花園の地図.txt',
        'حديقة الورود.txt',
        'גן ורדים.txt',
        'बगीचा.txt',
        '🌻👩‍🌾🇯🇵.txt',
        'e\u0301\u0301\u0301.txt',
        '\u202Etxt.exe',
        '\u2067isolated',
        'two\nlines',
        '<img src=x onerror=alert(1)>',
        '"onmouseover="alert(1)"',
        '<!--',
        '&lt;b&gt; &amp;',
        '<\u0338script>alert(1)',
    ];

    for (const scheme of ['light', 'dark']) {
        test(`of every script stay names in the ${scheme} and move no other cell`, async (t) => {
            const root = garden(Object.fromEntries(names.map((name) => [name, 1_000])));
            const page = await preview(t, root, { scheme, scripts: true });
            const texts = await textsOf(page);
            assert.deepEqual(texts.map(([name]) => name).sort(), [...names].sort());
            for (const [, size, date] of texts) {
                assert.equal(size, '1 KB');
                assert.match(date, /2024/);
            }
            const [[headingName, headingSize, headingDate], ...rows] = await cellsOf(page);
            for (const [name, size, date] of rows) {
                near(name.left, headingName.left, 'left of the name');
                near(size.right, headingSize.right, 'right of the size');
                near(date.right, headingDate.right, 'right of the date');
            }
            await assertNothingForeign(page);
        });
    }
});

test('780 by 620 is the size for folders', async () => {
    assert.deepEqual(await sizeOf(garden(mixed)), size);
});

for (const [scheme, background] of [
    ['light', 'rgb(255, 255, 255)'],
    ['dark', 'rgb(10, 10, 10)'],
]) {
    test(`a folder's page is ${scheme} where everything is`, async (t) => {
        const page = await preview(t, garden(mixed), { scheme });
        assert.equal(await page.$eval('body', (body) => getComputedStyle(body).backgroundColor), background);
    });
}
