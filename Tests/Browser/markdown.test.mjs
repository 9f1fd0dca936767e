// Markdown pages in Chromium: what is shown, and where links lead. How it lies in its window is in
// markdown-layout.test.mjs, what a hostile document must not do in hostile-markdown.test.mjs.

import assert from 'node:assert/strict';
import { after, before, describe, test } from 'node:test';

import { boxesOf, boxOf, openMarkdown, size, styleOf, textsOf } from './markdown.mjs';
import { file, launch, sizeOf } from './preview.mjs';

let browser;
before(async () => {
    browser = await launch();
});
after(() => browser.close());

const preview = (...words) => openMarkdown(browser, ...words);

test('the window for Markdown is 900 by 900', async () => {
    assert.deepEqual(await sizeOf(file('notes.md', '# Beds')), size);
});

describe('an image', () => {
    for (const [what, markdown] of [
        ['beside the document', '![Plan](plan.png)'],
        ['with a title', '![Plan](plan.png "The plan")'],
        ['of an escaped name', '![Plan](my%20plan.png)'],
        ['in angle brackets', '![Plan](<my plan.png>)'],
        ['by reference', '![Plan]\n\n[plan]: plan.png'],
        ['in a link', '[![Plan](plan.png)](https://example.com)'],
        ['in a heading', '# ![Plan](plan.png)'],
        ['in a table', '| a |\n|---|\n| ![Plan](plan.png) |'],
        ['as a raw tag', '<img src="plan.png" alt="Plan">'],
        ['as a raw tag in single quotes', "<img src='plan.png' alt='Plan'>"],
        ['as a raw tag in capitals', '<IMG SRC="plan.png" ALT="Plan">'],
        ['as a raw tag with spaces', '<img\n src = "plan.png"\n alt = "Plan" >'],
        ['in a block of HTML', '<p align="center">\n<img src="plan.png">\n</p>'],
    ]) {
        test(`is shown: ${what}`, async (t) => {
            const page = await preview(t, markdown);
            const widths = await page.$$eval('img', (images) =>
                images.map(({ naturalWidth, width }) => [naturalWidth, width]),
            );
            assert.deepEqual(widths, [[40, 40]]);
            assert.deepEqual(page.happenings, []);
        });
    }

    test('is shown as often as it is named', async (t) => {
        const page = await preview(t, '![](plan.png)\n\n'.repeat(20) + '<img src="plan.png">');
        const widths = await page.$$eval('img', (images) => images.map((image) => image.naturalWidth));
        assert.deepEqual(widths, Array(21).fill(40));
    });

    for (const [what, markdown] of [
        ['by itself', '![](wide.svg)'],
        ['in a list', '- ![](wide.svg)'],
        ['in a quote', '> ![](wide.svg)'],
        ['in a table', '| a | b |\n|---|---|\n| ![](wide.svg) | c |'],
        ['with its size', '<img src="wide.svg" width="3000" height="300">'],
    ]) {
        test(`shrinks to the page and keeps its shape: ${what}`, async (t) => {
            const page = await preview(t, markdown);
            const { right, width, height } = await boxOf(page, 'img');
            assert.ok(right <= 841, `ends at ${right}`);
            assert.ok(width > 600, `${width} wide`);
            assert.ok(Math.abs(width / height - 10) < 0.1, `${width} by ${height}`);
        });
    }

    test('keeps a size that it is given', async (t) => {
        const page = await preview(t, '<img src="plan.png" height="15"> <img src="plan.png" width="80">');
        const sizes = (await boxesOf(page, 'img')).map(({ width, height }) => [width, height]);
        assert.deepEqual(sizes, [
            [20, 15],
            [80, 60],
        ]);
    });

    for (const [what, markdown, text] of [
        ['with its text', '![The *plan*](gone.png)', 'The plan'],
        ['without a text', '![](gone.png)', 'Image'],
        ['as a raw tag', 'A <img src="gone.png" alt="The plan">.', 'The plan'],
    ]) {
        test(`that is missing leaves a placeholder ${what}`, async (t) => {
            const page = await preview(t, markdown);
            assert.deepEqual(await textsOf(page, '.missing-image'), [text]);
            for (const side of ['top', 'right', 'bottom', 'left']) {
                assert.equal(await styleOf(page, '.missing-image', `border-${side}-style`), 'dashed');
                assert.equal(await styleOf(page, '.missing-image', `border-${side}-width`), '1px');
            }
            assert.deepEqual(page.happenings, []);
        });
    }
});

describe('a heading', () => {
    const far = '\n\nText.'.repeat(60);
    const headings = ['# Beds & *boxes*', '## Größe: 花園', '# Beds & *boxes*', '### 1. `sow()`'];
    const longDocument = (link) => `[go](${link})${far}\n\n${headings.join(far + '\n\n')}${far}`;

    for (const [link, text] of [
        ['#beds--boxes', 'Beds & boxes'],
        ['#größe-花園', 'Größe: 花園'],
        ['#gr%C3%B6%C3%9Fe-%E8%8A%B1%E5%9C%92', 'Größe: 花園'],
        ['#beds--boxes-1', 'Beds & boxes'],
        ['#1-sow', '1. sow()'],
    ]) {
        test(`is reached by a link to ${link}`, async (t) => {
            const page = await preview(t, longDocument(link));
            await page.click('text="go"');
            await page.waitForFunction(() => scrollY > 0);
            const atTop = await page.$$eval(':is(h1, h2, h3)', (headings) =>
                headings
                    .filter((heading) => Math.abs(heading.getBoundingClientRect().top) < 2)
                    .map((heading) => heading.textContent),
            );
            assert.deepEqual(atTop, [text]);
        });
    }

    test('is reached by the address of the page', async (t) => {
        const page = await preview(t, longDocument('#'));
        await page.goto(`${page.url()}#beds--boxes-1`);
        const tops = (await boxesOf(page, 'h1')).map(({ top }) => Math.abs(top) < 2);
        assert.deepEqual(tops, [false, true]);
    });

    test('is larger the higher it stands', async (t) => {
        const page = await preview(t, '# a\n## b\n### c\n#### d\n##### e\n###### f');
        const sizes = await page.$$eval('article > *', (headings) =>
            headings.map((heading) => parseFloat(getComputedStyle(heading).fontSize)),
        );
        assert.deepEqual(
            sizes,
            [...sizes].sort((a, b) => b - a),
        );
        assert.equal(new Set(sizes).size, 6);
    });
});

describe('a link', () => {
    const addressesOf = (page) => page.$$eval('a', (links) => links.map((link) => link.getAttribute('href')));

    test('keeps an address that does no harm', async (t) => {
        const addresses = [
            'https://example.com/a?b=c&d=e#f',
            'mailto:me@example.com',
            'tel:+123',
            'ftp://example.com/',
            'other.md',
            '../other.md#beds',
            '/etc/motd',
            '#beds',
            '?a:b',
            '//example.com/a',
        ];
        const page = await preview(t, addresses.map((address) => `[a](${address})`).join(' '));
        assert.deepEqual(await addressesOf(page), addresses);
    });

    test('of an unknown scheme leads nowhere', async (t) => {
        const page = await preview(t, '[a](javascript:alert(1)) [b](file:///etc/motd) [c](data:text/html,a) [d](x:y)');
        assert.deepEqual(await addressesOf(page), ['#', '#', '#', '#']);
        const url = page.url();
        for (const link of await page.$$('a')) await link.click();
        assert.equal(page.url(), `${url}#`);
        assert.deepEqual(page.happenings, []);
    });

    test('is followed when it is clicked, and not before', async (t) => {
        const page = await preview(t, '[out](https://example.com/) https://example.org');
        await page.hover('a');
        assert.deepEqual(page.happenings, []);
        const asked = page.waitForEvent('request');
        await page.click('a');
        assert.equal((await asked).url(), 'https://example.com/');
    });

    test('is underlined', async (t) => {
        const page = await preview(t, '[a](b)');
        assert.equal(await styleOf(page, 'a', 'text-decoration-line'), 'underline');
    });
});

test('a front matter is a table above the text', async (t) => {
    const page = await preview(t, '---\ntitle: Beds & <boxes>\ntags: [a, b]\n---\n# Beds\n');
    assert.deepEqual(await textsOf(page, '.front-matter th'), ['title', 'tags']);
    assert.deepEqual(await textsOf(page, '.front-matter td'), ['Beds & <boxes>', '[a, b]']);
    assert.ok((await boxOf(page, '.front-matter')).bottom < (await boxOf(page, 'h1')).top);
    assert.equal((await boxOf(page, '.front-matter')).top, 32);
});

test('a quote stands behind a bar, and a quote in it behind another', async (t) => {
    const page = await preview(t, '> Rain.\n>\n> > Sun.\n\nText.');
    const lefts = await Promise.all(['blockquote', 'blockquote blockquote'].map((found) => boxOf(page, found)));
    assert.deepEqual(
        lefts.map(({ left }) => left),
        [60, 78],
    );
    assert.equal(await styleOf(page, 'blockquote blockquote', 'border-left-width'), '2px');
});

test('a block of code keeps its lines, spaces and characters', async (t) => {
    const code = 'if (a < b && c > "d") {\n    &amp;  x;\n}\n\n\n<b>*end*</b>\n';
    const page = await preview(t, `\`\`\`c\n${code}\`\`\`\n`);
    assert.equal(await page.$eval('pre code', (element) => element.innerText), code);
    const height = await page.$eval('pre code', (element) => element.getBoundingClientRect().height);
    assert.ok(height > 5 * 18, `${height} high`);
});

test('a table aligns its columns', async (t) => {
    const page = await preview(t, '| a | b | c | d |\n|---|:--|:-:|--:|\n| Beans | Beans | Beans | Beans |');
    const aligned = await page.$$eval('th, td', (cells) => cells.map((cell) => getComputedStyle(cell).textAlign));
    assert.deepEqual(aligned, ['left', 'left', 'center', 'right', 'left', 'left', 'center', 'right']);
});

test('details open and close without a script', async (t) => {
    const page = await preview(t, '<details><summary>More</summary>\n\n*Beans*\n\n</details>');
    assert.equal(await page.isVisible('em'), false);
    await page.click('summary');
    assert.equal(await page.isVisible('em'), true);
    await page.click('summary');
    assert.equal(await page.isVisible('em'), false);
});

test('what is nested without end leaves the text behind it outside', async (t) => {
    const deep = [`${'> '.repeat(3000)}rain`, `${'- '.repeat(3000)}bed`, '*a '.repeat(3000), 'The end.'];
    const page = await preview(t, deep.join('\n\n'));
    assert.equal((await textsOf(page, 'article > p')).at(-1), 'The end.');
});
