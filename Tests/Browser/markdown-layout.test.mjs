// How Markdown lies in its window, and whether it can be read, in Chromium.

import assert from 'node:assert/strict';
import { after, before, describe, test } from 'node:test';

import { boxesOf, boxOf, openMarkdown, styleOf } from './markdown.mjs';
import { launch } from './preview.mjs';

let browser;
before(async () => {
    browser = await launch();
});
after(() => browser.close());

const preview = (...words) => openMarkdown(browser, ...words);

/** Where the text of the first element that is found begins. */
const textLeft = (page, selector) =>
    page.$eval(selector, (element) => {
        const texts = document.createTreeWalker(element, NodeFilter.SHOW_TEXT);
        for (let text = texts.nextNode(); text; text = texts.nextNode()) {
            if (text.data.trim() === '') continue;
            const range = document.createRange();
            range.setStart(text, text.data.search(/\S/));
            range.setEnd(text, text.data.length);
            return range.getClientRects()[0].left;
        }
    });
const word = 'W'.repeat(2000);
const words = 'some words '.repeat(200);
const wideTable = ['|a'.repeat(99), '|-'.repeat(99), `|${'x'.repeat(30)}`.repeat(99)].join('\n');
const indented = (text, by) => text.replace(/^/gm, by);

for (const width of [900, 400]) {
    describe(`a window ${width} wide`, () => {
        for (const [what, markdown] of [
            ['a word', word],
            ['a word in a heading', `# ${word}`],
            ['a word in a list', `- ${word}\n- [ ] ${word}`],
            ['a word in a quote', `> ${word}`],
            ['a link', `[${word}](${word}) https://example.com/${word}`],
            ['a code span', `\`${word}\``],
            ['a line of code', `\`\`\`\n${word}\n\`\`\``],
            ['an indented line of code', `    ${word}`],
            ['a line of code in a list', `- a\n\n  \`\`\`\n  ${word}\n  \`\`\``],
            ['a line of code in a quote', `> \`\`\`\n> ${word}\n> \`\`\``],
            ['a raw line of code', `<pre>${word}</pre>`],
            ['a table of many columns', wideTable],
            ['a table of long words', `| a | b |\n|---|---|\n| ${word} | \`${word}\` |`],
            ['a table of long texts', `| a | b |\n|---|---|\n| ${words} | ${words} |`],
            ['a table in a list', `- a\n\n${indented(wideTable, '  ')}`],
            ['a table in a quote', indented(wideTable, '> ')],
            ['a raw table', `<table><tr><td>${word}</td></tr></table>`],
            ['a front matter of long words', `---\n${word}: ${word}\n---\n`],
            ['a front matter of long texts', `---\na: ${words}\n---\n`],
            ['an image', '![](wide.svg) <img src="wide.svg" width="3000">'],
            ['a missing image with a long word', `![${word}](gone.png)`],
            ['a missing image with a long text', `![${words}](gone.png)`],
            ['ten lists in each other', Array.from({ length: 10 }, (_, i) => `${'  '.repeat(i)}- bed`).join('\n')],
            ['ten quotes in each other', `${'> '.repeat(10)}rain`],
            ['details', `<details open><summary>${word}</summary>${word}</details>`],
            ['text from right to left', 'حديقة '.repeat(500)],
            ['text without spaces', '漢'.repeat(2000)],
            ['spaces that do not break', 'a\u00A0'.repeat(1000)],
        ]) {
            test(`is not overflown by ${what}`, async (t) => {
                const page = await preview(t, markdown, { size: { width, height: 900 } });
                const widths = await page.evaluate(() => [
                    document.documentElement.scrollWidth,
                    document.body.scrollWidth,
                    document.querySelector('article').scrollWidth,
                ]);
                assert.deepEqual(widths, [width, width, Math.min(width, 860)]);
            });
        }

        for (const [what, selector, markdown] of [
            ['a table', 'table', wideTable],
            ['a table of long words', 'table', `| a |\n|---|\n| ${word} |`],
            ['a block of code', 'pre', `\`\`\`\n${word}\n\`\`\``],
        ]) {
            test(`lets ${what} scroll by itself`, async (t) => {
                const page = await preview(t, `Text.\n\n${markdown}`, { size: { width, height: 900 } });
                const [room, left] = await page.$eval(selector, (element) => {
                    element.scrollLeft = 100_000;
                    return [element.scrollWidth - element.clientWidth, element.scrollLeft];
                });
                assert.ok(room > 400);
                assert.ok(Math.abs(left - room) <= 1);
                assert.equal((await boxOf(page, selector)).left, (await boxOf(page, 'p')).left);
            });
        }
    });
}

describe('a list', () => {
    test('is indented by its depth', async (t) => {
        const page = await preview(t, '- a\n  - b\n    1. c\n       - d');
        const lefts = (await boxesOf(page, 'li')).map(({ left }) => left);
        assert.deepEqual(lefts, [88, 116, 144, 172]);
    });

    test('has bullets or numbers', async (t) => {
        const page = await preview(t, '- a\n\n1. b');
        assert.equal(await styleOf(page, 'ul li', 'list-style-type'), 'disc');
        assert.equal(await styleOf(page, 'ol li', 'list-style-type'), 'decimal');
    });

    test('of tasks shows what is done, and cannot be changed', async (t) => {
        const page = await preview(t, '- [ ] a\n- [x] b\n- [X] c');
        const boxes = () =>
            page.$$eval('li input', (inputs) => inputs.map(({ type, checked, disabled }) => [type, checked, disabled]));
        const expected = [
            ['checkbox', false, true],
            ['checkbox', true, true],
            ['checkbox', true, true],
        ];
        assert.deepEqual(await boxes(), expected);
        await page.mouse.click(...(await boxOf(page, 'li input').then(({ x, y }) => [x + 4, y + 4])));
        assert.deepEqual(await boxes(), expected);
    });

    for (const [what, markdown] of [
        ['a task', '- [ ] Water the beds'],
        ['a task with a task in it', '- [ ] Water\n  - [ ] the beds'],
        ['a task of paragraphs', '- [ ] Water\n\n  the beds'],
        ['a task that is a heading', '- [ ] # Water'],
    ]) {
        test(`shows the checkbox in front of ${what}`, async (t) => {
            const page = await preview(t, markdown);
            const box = await boxOf(page, 'input');
            const item = await boxOf(page, 'li');
            const left = await textLeft(page, 'li');
            assert.ok(box.right < left, 'before the text');
            assert.ok(box.right <= item.left, 'in the margin');
            assert.ok(box.left >= 60, 'in the article');
            const line = await page.$eval('li', (element) => {
                const range = document.createRange();
                range.selectNodeContents(element);
                return [...range.getClientRects()].find(({ width, height }) => width > 20 && height > 8 && height < 50);
            });
            assert.ok(box.top >= line.top - 4 && box.bottom <= line.bottom + 4, 'in the first line');
        });
    }

    test('shows the checkbox of a numbered task beside the number', async (t) => {
        const page = await preview(t, '1. [ ] Water\n2. Weed');
        const [first, second] = await boxesOf(page, 'li');
        const hasNumber = (await styleOf(page, 'li', 'list-style-type')) !== 'none';
        const box = await boxOf(page, 'input');
        assert.equal(first.left, second.left);
        assert.ok(!hasNumber || box.left >= first.left, 'not upon the number');
    });

    test('gives bullets to what is no task', async (t) => {
        const page = await preview(t, '- [ ] Water\n- Rest\n  - Sleep');
        assert.equal(await styleOf(page, 'li.task', 'list-style-type'), 'none');
        assert.equal(await styleOf(page, 'li:not(.task)', 'list-style-type'), 'disc');
        assert.equal(await styleOf(page, 'li li', 'list-style-type'), 'circle');
    });
});

const everything = `---
title: Beds
---
# One \`code\` [link](a)
###### Six
Text, [link](a), \`code\`, **strong**, ~~gone~~, ![missing](gone.png).

> Quote, [link](a), \`code\`.
>
> \`\`\`
> block
> \`\`\`

- item
- [ ] task

\`\`\`
block
\`\`\`

| Head [link](a) | \`code\` |
|---|---|
| cell | [link](a) |
| \`code\` | cell |
| ![missing](gone.png) | [\`code\`](a) |

<details open><summary>More</summary>Text <mark>marked</mark> <kbd>Ctrl</kbd></details>
`;

for (const scheme of ['light', 'dark']) {
    test(`every text can be read in the ${scheme}`, async (t) => {
        const page = await preview(t, everything, { scheme });
        const texts = await page.evaluate(() => {
            const rgb = (colour) => /^rgba?\((.*)\)$/.exec(colour)[1].split(',').map(Number);
            const luminance = (colour) =>
                rgb(colour)
                    .slice(0, 3)
                    .map((value) => (value <= 10 ? value / 255 / 12.92 : ((value / 255 + 0.055) / 1.055) ** 2.4))
                    .reduce((sum, value, i) => sum + value * [0.2126, 0.7152, 0.0722][i], 0);
            // No colour is half transparent here: what is drawn upon is the nearest that is there at all.
            const backgroundOf = (element) => {
                const { backgroundColor } = getComputedStyle(element);
                return rgb(backgroundColor)[3] === 0 ? backgroundOf(element.parentElement) : backgroundColor;
            };
            const found = [];
            const walker = document.createTreeWalker(document.querySelector('article'), NodeFilter.SHOW_TEXT);
            for (let text = walker.nextNode(); text; text = walker.nextNode()) {
                if (text.data.trim() === '') continue;
                const element = text.parentElement;
                const both = [getComputedStyle(element).color, backgroundOf(element)].map(luminance);
                const [darker, lighter] = both.sort((a, b) => a - b);
                const isMuted = element.closest('blockquote, h6, .missing-image, .front-matter th') !== null;
                found.push({ text: text.data.trim(), isMuted, contrast: (lighter + 0.05) / (darker + 0.05) });
            }
            return found;
        });
        assert.ok(texts.length > 30);
        // WCAG 2.1, 1.4.3: 4.5 for texts, 3 for large ones and what is of less weight.
        for (const { text, isMuted, contrast } of texts) {
            assert.ok(contrast >= (isMuted ? 3 : 4.5), `"${text}" has a contrast of ${contrast}`);
        }
    });

    test(`lines and fills are seen in the ${scheme}`, async (t) => {
        const page = await preview(t, everything, { scheme });
        const background = await styleOf(page, 'body', 'background-color');
        for (const [selector, name] of [
            ['p code', 'background-color'],
            ['pre', 'background-color'],
            ['td', 'border-bottom-color'],
            ['tbody tr:nth-child(even)', 'background-color'],
            ['blockquote', 'border-left-color'],
            ['.missing-image', 'border-top-color'],
            ['p a', 'text-decoration-color'],
        ]) {
            const colour = await styleOf(page, selector, name);
            assert.notEqual(colour, background, selector);
            assert.notEqual(colour, 'rgba(0, 0, 0, 0)', selector);
        }
    });
}
