// Pages of real archives in Chromium: the tree, and what hostile archives must not do to it.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdirSync, readFileSync, symlinkSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after, before, describe, test } from 'node:test';

import { assertNothingForeign, file, launch, leave, open, pageFor, sizeOf } from './preview.mjs';

let browser;
before(async () => {
    browser = await launch();
});
after(() => browser.close());

const size = { width: 780, height: 620 };

/** The page of the archive at `path`, open for the length of the test `t`. */
const preview = async (t, path, options) => {
    const page = await open(browser, await pageFor(path), { size, ...options });
    t.after(() => leave(page));
    return page;
};

/** A new folder that holds these files, by path; a content that is an object is the target of a link. */
function garden(contents) {
    const root = dirname(file('.root', ''));
    for (const [path, content] of Object.entries(contents)) {
        mkdirSync(dirname(join(root, path)), { recursive: true });
        if (typeof content === 'object') symlinkSync(content.link, join(root, path));
        else writeFileSync(join(root, path), content);
    }
    return root;
}

/** A tar archive of what is in the folder `root`. */
function tar(root, name = 'garden.tar.gz', items = ['.']) {
    const archive = file(name, '');
    const words = ['--create', '--auto-compress', '--file', archive, '--exclude', './.root', '--directory', root];
    execFileSync('tar', [...words, ...items]);
    return archive;
}

/** A zip archive of what is in the folder `root`. */
function zip(root, ...options) {
    const archive = join(dirname(file('.place', '')), 'garden.zip');
    execFileSync('zip', ['--quiet', '--recurse-paths', ...options, archive, '.', '--exclude', '.root'], {
        cwd: root,
        env: { ...process.env, LC_ALL: 'C.UTF-8' }, // names as they are
    });
    return archive;
}

/** So many small files in the folder `path`. */
const files = (path, count) =>
    Object.fromEntries(Array.from({ length: count }, (_, i) => [`${path}/${i + 1}.txt`, 'A line.\n']));

const names = (page) =>
    page.$$eval('.row .name > span:not([class])', (elements) => elements.map((element) => element.firstChild.data));
const visibleNames = (page) =>
    page.$$eval('.row .name > span:not([class])', (elements) =>
        elements.filter((element) => element.checkVisibility()).map((element) => element.firstChild.data),
    );
const notices = (page) => page.$$eval('.notice', (elements) => elements.map((element) => element.textContent));

/** The chevron's direction in degrees, once it has come to rest. */
const chevronOf = (folder) =>
    folder.$eval('.chevron', async (chevron) => {
        await Promise.all(chevron.getAnimations().map((animation) => animation.finished));
        const { transform } = getComputedStyle(chevron);
        if (transform === 'none') return 0;
        const { a, b } = new DOMMatrix(transform);
        return Math.round((Math.atan2(b, a) * 180) / Math.PI);
    });

/** More than eighty items and four folders at the top, so that every folder is closed. */
const closedGarden = () =>
    garden({ ...files('Beds', 90), 'Hedges/Box/box.txt': 'Green.\n', 'Ponds/pond.txt': 'Wet.\n', 'Trees/oak.txt': 'Old.\n' });

describe('a folder in the tree', () => {
    // tar writes a folder "." around everything; the items' own names leave it out.
    const archive = tar(closedGarden(), 'garden.tar.gz', ['Beds', 'Hedges', 'Ponds', 'Trees']);
    const folders = ['Beds', 'Hedges', 'Ponds', 'Trees'];
    const withHedgesOpen = ['Beds', 'Hedges', 'Box', 'Ponds', 'Trees'];

    for (const [what, toggle] of [
        ['a click', (page, summary) => summary.click()],
        ['the Enter key', (page, summary) => summary.press('Enter')],
        ['the space bar', (page, summary) => summary.press('Space')],
    ]) {
        test(`opens and closes by ${what}, without script`, async (t) => {
            const page = await preview(t, archive);
            const folder = await page.$('details:nth-of-type(2)');
            const summary = await folder.$('summary');
            assert.deepEqual(await visibleNames(page), folders);
            assert.equal(await chevronOf(folder), 0);

            await toggle(page, summary);
            assert.deepEqual(await visibleNames(page), withHedgesOpen);
            assert.equal(await chevronOf(folder), 90);

            await toggle(page, summary);
            assert.deepEqual(await visibleNames(page), folders);
            assert.equal(await chevronOf(folder), 0);
        });
    }

    test('is reached by the Tab key, one after the other', async (t) => {
        const page = await preview(t, archive);
        const reached = [];
        for (let i = 0; i < folders.length; ++i) {
            await page.keyboard.press('Tab');
            reached.push(await page.evaluate(() => document.activeElement.querySelector('.name').lastChild.textContent));
        }
        assert.deepEqual(reached, folders);
    });

    test('shows its contents with the chevron of its own alone turned', async (t) => {
        const page = await preview(t, archive);
        const hedges = await page.$('details:nth-of-type(2)');
        await (await hedges.$('summary')).click();
        assert.equal(await chevronOf(hedges), 90);
        assert.equal(await chevronOf(await hedges.$('details')), 0);
    });

    test('stands further in than the folder around it', async (t) => {
        const page = await preview(t, archive);
        await (await page.$('details:nth-of-type(2) > summary')).click();
        const lefts = await page.$$eval('details:nth-of-type(2) .name > span:not([class])', (elements) =>
            elements.map((element) => element.getBoundingClientRect().left),
        );
        assert.equal(lefts[1] - lefts[0], 18);
    });
});

test('a small archive shows everything at once', async (t) => {
    const page = await preview(t, tar(garden({ 'a/b/c/deep.txt': 'x', 'd/e.txt': 'x' }), 'small.tar', ['a', 'd']));
    assert.deepEqual(await visibleNames(page), ['a', 'b', 'c', 'deep.txt', 'd', 'e.txt']);
});

test('rows lie one below the other, all equally high', async (t) => {
    const page = await preview(t, tar(garden({ 'a/b/c/deep.txt': 'x', 'd/e.txt': 'x' })));
    const rows = await page.$$eval('.tree .row:not(.heading)', (elements) =>
        elements.map((element) => element.getBoundingClientRect()).map(({ top, bottom }) => ({ top, bottom })),
    );
    for (let i = 1; i < rows.length; ++i) assert.ok(Math.abs(rows[i].top - rows[i - 1].bottom) < 0.5);
    assert.equal(new Set(rows.map(({ top, bottom }) => Math.round(bottom - top))).size, 1);
});

describe('marks', () => {
    const longName = 'W'.repeat(200);

    test('a link says that it is one', async (t) => {
        const page = await preview(t, tar(garden({ 'oak.txt': 'Old.\n', tree: { link: 'oak.txt' } })));
        const mark = await page.$('.row .name .muted');
        assert.equal(await mark.textContent(), '(link)');
        assert.ok(await mark.isVisible());
    });

    test('locks are seen, however long the name', async (t) => {
        const page = await preview(t, zip(garden({ [`safe/${longName}`]: 'Secret.\n' }), '--password', 'rosebud'));
        assert.deepEqual(
            await page.$$eval('h1 .badge', (badges) => badges.map((badge) => badge.textContent)),
            ['Password protected'],
        );
        const locks = await page.$$eval('.lock', (elements) =>
            elements.map((lock) => {
                const { left, right, width } = lock.getBoundingClientRect();
                const name = lock.closest('.name').getBoundingClientRect();
                return { isInside: left >= name.left && right <= name.right + 0.5, isDrawn: width > 5 };
            }),
        );
        assert.deepEqual(locks, [
            { isInside: true, isDrawn: true }, // the folder's
            { isInside: true, isDrawn: true },
        ]);
    });
});

test('the last row counts what is left out', async (t) => {
    const page = await preview(t, tar(garden(files('Leaves', 3_005)), 'leaves.tar', ['Leaves']));
    assert.equal(await page.$$eval('.row .name', (rows) => rows.length), 3_000);
    const last = await page.$('.tree > .row:last-child');
    assert.equal(await last.textContent(), 'and 6 more items');
    assert.ok(await last.isVisible());
});

test('an archive that breaks off shows what was read and says so', async (t) => {
    const archive = tar(garden({ 'a.txt': 'a', 'b.txt': 'b'.repeat(5_000), 'c.txt': 'c' }), 'cut.tar', [
        'a.txt',
        'b.txt',
        'c.txt',
    ]);
    writeFileSync(archive, readFileSync(archive).subarray(0, 4 * 512 + 100)); // within the contents of b.txt
    const page = await preview(t, archive);
    const [notice] = await notices(page);
    assert.match(notice, /^Showing the first \d items?\. The rest of the archive couldn't be read in time, or is damaged\.$/);
    assert.ok((await visibleNames(page)).includes('a.txt'));
});

test('an archive of nothing says so', async (t) => {
    const page = await preview(t, tar(garden({ '__MACOSX/._a': 'x' }), 'finder.tar', ['__MACOSX']));
    assert.deepEqual(await notices(page), ['This archive is empty.']);
    assert.equal(await page.$('.list'), null);
});

describe('hostile names', () => {
    const hostile = [
        '<img src=x onerror=alert(1)>',
        '<svg onload=alert(1)>',
        '"onmouseover="alert(1)"',
        "' onload='alert(1)' '",
        '<!--',
        '&lt;b&gt; &amp; &#60;',
        'two\nlines',
        '<\u0338script>alert(1)',
        '"\u0301 onload=alert(1) x="\u0301',
        '\u0600<b>',
        '\u202Etxt.exe',
        '\u2066<b>\u2069',
        'javascript:alert(1)',
        '"><script>alert(1)<',
        '--depth:9999;background:red',
    ];
    const root = garden(
        Object.fromEntries(hostile.flatMap((name) => [[`files/${name}`, 'x'], [`folders/${name}/inside`, 'x']])),
    );

    for (const [what, make] of [
        ['a tar archive', () => tar(root)],
        ['a zip archive', () => zip(root)],
    ]) {
        test(`in ${what} stay names`, async (t) => {
            const page = await preview(t, make(), { scripts: true });
            const shown = await names(page);
            for (const name of hostile) assert.equal(shown.filter((found) => found === name).length, 2, name);
            await assertNothingForeign(page);
        });
    }

    test('do not turn the text of other rows around', async (t) => {
        const page = await preview(t, tar(garden({ 'a\u202Eb.txt': 'x', 'plain.txt': 'x' })));
        const directions = await page.$$eval('.row .size, .row .date', (cells) =>
            cells.map((cell) => getComputedStyle(cell).direction),
        );
        assert.equal(new Set(directions).size, 1);
    });
});

describe('a window of 780 by 620', () => {
    for (const [what, make] of [
        ['long names', () => tar(garden({ [`${'W'.repeat(255)}/${'漢'.repeat(85)}`]: 'x', ['x'.repeat(255)]: 'x' }))],
        ['200 folders in each other', () => tar(garden({ [`${'d/'.repeat(199)}leaf.txt`]: 'x' }))],
        ['3,000 rows', () => tar(garden(files('Leaves', 3_005)))],
    ]) {
        test(`is not overflown by ${what}`, async (t) => {
            const page = await preview(t, make());
            const widths = await page.evaluate(() => [document.documentElement.scrollWidth, document.body.scrollWidth]);
            assert.deepEqual(widths, [780, 780]);
        });
    }

    test('is the size for archives', async () => {
        assert.deepEqual(await sizeOf(tar(garden({ a: 'x' }))), size);
    });
});

for (const [scheme, background] of [
    ['light', 'rgb(255, 255, 255)'],
    ['dark', 'rgb(10, 10, 10)'],
]) {
    test(`an archive's page is ${scheme} where everything is`, async (t) => {
        const page = await preview(t, tar(garden({ a: 'x' })), { scheme });
        assert.equal(await page.$eval('body', (body) => getComputedStyle(body).backgroundColor), background);
    });
}
