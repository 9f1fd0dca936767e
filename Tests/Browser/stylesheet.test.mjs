// The stylesheet's values as Chromium computes them, in the light and in the dark.
//
// The rules are tried on samples of the markup of every kind of page. A value that is the name of a custom
// property stands for that property's colour in the scheme at hand.

import assert from 'node:assert/strict';
import { after, before, describe, test } from 'node:test';

import { fixture, launch, leave, open, textsBefore } from './preview.mjs';

const colours = {
    light: {
        '--bg': '#ffffff',
        '--surface': '#fafafa',
        '--fill': '#f2f2f2',
        '--fg': '#0a0a0a',
        '--muted': '#737373',
        '--faint': '#a8a8a8',
        '--line': '#e5e5e5',
        '--line-strong': '#d4d4d4',
        '--row': '#fafafa',
        '--code': '#fafafa',
        '--track': '#ededed',
        '--link': '#0a0a0a',
        '--accent': '#0a0a0a',
    },
    dark: {
        '--bg': '#0a0a0a',
        '--surface': '#171717',
        '--fill': '#2a2a2a',
        '--fg': '#ffffff',
        '--muted': '#a8a8a8',
        '--faint': '#737373',
        '--line': '#2a2a2a',
        '--line-strong': '#525252',
        '--row': '#171717',
        '--code': '#171717',
        '--track': '#2a2a2a',
        '--link': '#ffffff',
        '--accent': '#ffffff',
    },
};

const systemFonts = '-apple-system, BlinkMacSystemFont, "Helvetica Neue", sans-serif';
const display = { 'font-family': `"Clash Display", ${systemFonts}` };
const satoshi = { 'font-family': `Satoshi, ${systemFonts}` };
const mono = { 'font-family': 'ui-monospace, "SF Mono", Menlo, monospace' };
const tabular = { 'font-variant-numeric': 'tabular-nums' };
const ellipsis = { overflow: 'hidden', 'text-overflow': 'ellipsis', 'white-space': 'nowrap' };
const round = { 'border-radius': '999px' };
const breaksWords = /^(anywhere|break-word)$/;
const transparent = 'rgba(0, 0, 0, 0)';

const image = '<img src="data:image/gif;base64,R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7" alt="">';

const treeRow = (depth, chevron, name, more = '') =>
    `<span class="name" style="--depth:${depth}"><span class="${chevron ? 'chevron">▶' : 'spacer">'}</span>${image}` +
    `<span>${name}</span>${more}</span><span class="size">1 KB</span><span class="date">Mar 4</span>`;

const samples = {
    listing: {
        bodyClass: 'folder',
        body: `
<div class="page">
<header class="header">
${image.replace('<img', '<img class="icon"')}
<div class="titles">
<h1>Garden<span class="badge">Encrypted</span></h1>
<p class="facts">3 items<span class="dot">·</span>12 KB</p>
</div>
</header>
<header class="header" id="bare">
<div class="icon placeholder"></div>
<div class="titles"><h1>Garden</h1><p class="facts"></p></div>
</header>
<div class="hero"><b>12 KB</b><span>3 items</span></div>
<div class="stats"><div><span>Size</span><b>12 KB</b></div><div><span>Items</span><b>3</b></div></div>
<div class="composition"><div class="bar"><span style="flex-grow:99.40;background:#E659AD"></span><span
style="flex-grow:0.60;background:#D4D4D4"></span></div><div class="legend"><span class="legend-item"><i
style="background:#E659AD"></i>Images<b>11 KB</b></span><span class="legend-item"><i
style="background:#D4D4D4"></i>Other<b>1 KB</b></span></div></div>
<p class="notice">This archive is empty.</p>
<p id="prose">A <a href="#prose">link</a> and <span class="mono">mono</span>.</p>
<div class="list">
<div class="row heading"><span>Name</span><span class="size">Size</span><span class="date">Modified</span></div>
<div class="row" id="file"><span class="name">${image}<span>${'beds '.repeat(80)}</span></span><span
class="size">1 KB<small><i style="width:50.0%"></i></small></span><span class="date">Mar 4, 2024 at 9:15 AM</span></div>
<div class="row" id="unknown"><span class="name">${image}<span>beds</span></span><span class="size"><span
class="muted">—</span><small><i style="width:0%"></i></small></span><span class="date"></span></div>
</div>
<div class="list tree">
<div class="row heading"><span>Name</span><span class="size">Size</span><span class="date">Modified</span></div>
<details open id="opened"><summary class="row-wrap"><div class="row dir">${treeRow(0, true, 'beds')}</div></summary><details
id="closed"><summary class="row-wrap"><div class="row dir alt">${treeRow(1, true, 'herbs')}</div></summary><div
class="row">${treeRow(2, false, 'mint')}</div></details><div class="row alt" id="leaf">${treeRow(
            2,
            false,
            `notes ${'long '.repeat(80)}`,
            '<span class="lock" title="Password protected">🔒</span>',
        )}</div></details>
</div>
</div>`,
        rules: {
            html: { margin: '0px', 'background-color': '--bg', color: '--fg', 'box-sizing': 'border-box' },
            body: {
                margin: '0px',
                'background-color': '--bg',
                color: '--fg',
                'font-size': '13px',
                'line-height': '18.85px',
                '-webkit-font-smoothing': 'antialiased',
                ...satoshi,
            },
            '#prose a': {
                color: '--link',
                'text-decoration-line': 'underline',
                'text-decoration-color': '--line-strong',
                'text-underline-offset': '2px',
            },
            '#prose .mono': mono,
            '.page': { padding: '28px 28px 32px' },
            '.header': {
                display: 'flex',
                'flex-direction': 'row',
                'align-items': 'center',
                gap: '14px',
                'margin-bottom': '18px',
            },
            '.header .icon': { width: '56px', height: '56px', flex: '0 0 auto' },
            '#bare .placeholder': {
                width: '56px',
                height: '56px',
                flex: '0 0 auto',
                'border-radius': '12px',
                'background-color': '--fill',
            },
            '.header h1': {
                margin: '0px',
                'font-weight': '600',
                'font-size': '20px',
                'line-height': '25px',
                'overflow-wrap': breaksWords,
                ...display,
            },
            '.header .facts': { margin: '3px 0px 0px', color: '--muted', ...tabular },
            '.dot': { margin: '0px 6px', color: '--faint' },
            '.badge': {
                display: 'inline-block',
                'margin-left': '10px',
                padding: '0px 10px',
                height: '22px',
                'line-height': '22px',
                'vertical-align': '3px',
                'font-weight': '600',
                'font-size': '11px',
                color: '--muted',
                'background-color': '--fill',
                ...round,
                ...satoshi,
            },
            '.hero': { display: 'flex', 'align-items': 'baseline', gap: '10px', margin: '0px 0px 16px' },
            '.hero b': {
                'font-weight': '600',
                'font-size': '40px',
                'line-height': '40px',
                'letter-spacing': '-0.8px',
                ...display,
                ...tabular,
            },
            '.hero span': { color: '--muted', 'font-size': '14px' },
            '.stats': { display: 'flex', gap: '32px', margin: '0px 0px 18px' },
            '.stats span': { display: 'block', color: '--muted', 'font-size': '13px' },
            '.stats b': {
                display: 'block',
                'font-weight': '600',
                'font-size': '28px',
                'line-height': '32.2px',
                'letter-spacing': '-0.28px',
                ...display,
                ...tabular,
            },
            '.notice': {
                margin: '0px 0px 14px',
                padding: '8px 14px',
                color: '--muted',
                'background-color': '--fill',
                ...round,
            },
            '.composition': { 'margin-bottom': '18px' },
            '.bar': {
                display: 'flex',
                gap: '2px',
                height: '10px',
                overflow: 'hidden',
                'background-color': '--track',
                ...round,
            },
            '.bar span': { 'min-width': '3px' },
            '.legend': {
                display: 'flex',
                'flex-wrap': 'wrap',
                gap: '4px 16px',
                'margin-top': '9px',
                color: '--muted',
                'font-size': '12px',
            },
            '.legend-item': {
                display: 'flex', // what inline-flex becomes as an item of another flex box
                'align-items': 'center',
                gap: '6px',
            },
            '.legend-item i': { width: '8px', height: '8px', 'border-radius': '2px' },
            '.legend-item b': { 'font-weight': '700', color: '--fg', ...tabular },
            '.list': {
                'border-top-width': '1px',
                'border-top-style': 'solid',
                'border-top-color': '--line',
            },
            '#file': {
                display: 'grid',
                'grid-template-columns': '658px 96px 150px', // what 1,000px leave for the first
                'align-items': 'center',
                gap: '12px',
                'min-height': '36px',
                padding: '3px 8px',
                'border-bottom-width': '1px',
                'border-bottom-style': 'solid',
                'border-bottom-color': '--line',
                ...tabular,
            },
            '#file .name': { display: 'flex', gap: '8px' },
            '#file .name span': ellipsis,
            '#file .name img': { width: '18px', height: '18px' },
            '#file .size': { 'text-align': 'right', 'font-weight': '700' },
            '#file .size small': {
                position: 'absolute',
                height: '3px',
                bottom: '-5px',
                'border-radius': '2px',
                'background-color': '--track',
            },
            '#file .size small i': { 'background-color': '--fg', opacity: '0.8' },
            '#file .date': { color: '--muted', 'text-align': 'right', 'white-space': 'nowrap' },
            '.row.heading': {
                'min-height': '28px',
                color: '--muted',
                'font-size': '10.5px',
                'font-weight': '600',
                'text-transform': 'uppercase',
                'letter-spacing': '1.26px',
            },
            '#unknown .muted': { color: '--faint' },
            '#leaf .lock': { 'margin-left': '4px', color: '--muted', 'font-size': '11px' },
            '#opened > summary': { 'list-style-type': 'none', cursor: 'default' },
            '#opened > summary .chevron': {
                width: '10px',
                color: '--faint',
                'font-size': '9px',
                transform: 'matrix(0, 1, -1, 0, 0, 0)',
                'transition-duration': '0.24s',
                'transition-timing-function': 'cubic-bezier(0.4, 0, 0.2, 1)',
            },
            '#closed > summary .chevron': { transform: 'none' },
            '#leaf .spacer': { width: '10px' },
            '#opened > summary .name > span:not(.chevron)': { 'font-weight': '700', ...ellipsis },
            '#leaf .name > span:not(.spacer):not(.lock)': { 'font-weight': '400', ...ellipsis },
        },
    },
    text: {
        bodyClass: 'text',
        body: `
<div class="page"></div><div class="code-view mono"><span class="line">one</span>
<span class="line">two</span></div><div class="code-view mono wrap"><span class="line">${'four '.repeat(80)}</span></div>`,
        rules: {
            '.page': { padding: '28px 28px 6px' },
            '.code-view': {
                margin: '0px',
                padding: '12px 0px',
                'overflow-x': 'auto',
                'font-size': '12px',
                'line-height': '18.6px',
                'border-top-width': '1px',
                'border-top-style': 'solid',
                ...mono,
            },
            '.code-view .line': { display: 'block', 'white-space': 'pre', 'padding-right': '16px' },
            '.code-view .line::before': {
                width: '52px',
                'margin-right': '16px',
                'padding-right': '12px',
                'text-align': 'right',
                color: '--faint',
                'border-right-width': '1px',
                'border-right-style': 'solid',
                'border-right-color': '--line',
                'user-select': 'none',
            },
            '.wrap .line': {
                'white-space': 'pre-wrap',
                'overflow-wrap': breaksWords,
                'padding-left': '80px',
                'text-indent': '-80px',
            },
        },
    },
    markdown: {
        bodyClass: 'markdown',
        body: `<article class="markdown-body">
<table class="front-matter">
<tr><th>title</th><td>Beds</td></tr>
</table>
<p id="prose">A <code>seed</code>, <a href="#prose">a link</a>, <span class="missing-image" title="plan.png">Plan</span>.</p>
<h1>One</h1><p>Text.</p>
<h2>Two</h2><p>Text.</p>
<h3>Three</h3><p>Text.</p>
<h4>Four</h4><p>Text.</p>
<h5>Five</h5><p>Text.</p>
<h6>Six</h6>
<ul id="list">
<li>Beans</li>
</ul>
<ol>
<li>Sow</li>
</ol>
<ul class="tasks">
<li class="task"><input type="checkbox" disabled> Water</li>
</ul>
<pre><code class="language-sh">sow
</code></pre>
<blockquote>
<p>Rain.</p>
</blockquote>
<table id="narrow"><thead><tr><th>Bed</th></tr></thead><tbody><tr><td>Peas</td></tr></tbody></table>
<table id="wide"><tbody><tr>${`<td>${'bean'.repeat(10)}</td>`.repeat(20)}</tr></tbody></table>
<hr>
<p><img id="image" src="data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' width='3000' height='300'/%3E" alt=""></p>
<details><summary>More</summary><p>Text.</p></details>
<p>The end.</p>
</article>`,
        rules: {
            body: { 'background-color': '--bg' },
            '.markdown-body': {
                'max-width': '860px',
                'margin-left': '70px', // centred in 1,000px
                'margin-right': '70px',
                padding: '32px 40px 48px',
                'font-size': '14px',
                'line-height': '23.1px',
            },
            ...Object.fromEntries(
                [
                    ['h1', 2.3],
                    ['h2', 1.45],
                    ['h3', 1.2],
                    ['h4', 1],
                    ['h5', 0.9],
                    ['h6', 0.85],
                ].map(([tag, em]) => [
                    `.markdown-body ${tag}`,
                    {
                        'font-weight': '600',
                        'font-size': `${14 * em}px`,
                        'line-height': `${14 * em * 1.25}px`,
                        margin: `${14 * em * 1.6}px 0px ${14 * em * 0.6}px`,
                        color: tag === 'h6' ? '--muted' : '--fg',
                        ...(tag === 'h1' && { 'letter-spacing': `${-0.02 * 14 * em}px` }),
                        ...(tag === 'h2' && { 'border-bottom-style': 'solid', 'border-bottom-width': '1px' }),
                        ...display,
                    },
                ]),
            ),
            '#prose': { margin: '0px 0px 14px' },
            '#list': { margin: '0px 0px 14px' },
            '.markdown-body ol': { margin: '0px 0px 14px' },
            '.tasks': { 'list-style-type': 'none' },
            '.task input': { 'margin-left': /^-/ },
            '#prose code': {
                'font-size': '12.04px',
                'border-radius': '5px',
                'background-color': '--fill',
                ...mono,
            },
            '#prose a': { color: '--link' },
            '.markdown-body pre': {
                padding: '14px 16px',
                'border-radius': '10px',
                'background-color': '--code',
                ...mono,
            },
            '.markdown-body pre code': { 'font-size': '12.5px', 'background-color': transparent, ...mono },
            '.markdown-body blockquote': {
                color: '--muted',
                'margin-bottom': '14px',
                'border-left-width': '2px',
                'border-left-style': 'solid',
                'border-left-color': '--line-strong',
            },
            '#wide': { display: 'block', 'overflow-x': 'auto', margin: '0px 0px 14px' },
            '#narrow th': { padding: '8px 13px' },
            '#narrow td': { padding: '8px 13px' },
            '.markdown-body hr': { margin: '24px 0px' },
            '#image': { 'max-width': '100%' },
            '.missing-image': {
                'border-top-style': 'dashed',
                'border-left-style': 'dashed',
                'border-radius': '999px',
                'font-size': '12px',
                color: '--muted',
            },
            '.front-matter': { 'font-size': '12px' },
            '.front-matter th': { color: '--muted', 'text-align': 'left' },
            '.markdown-body summary': { 'font-weight': '500' },
        },
    },
    message: {
        bodyClass: 'message-page',
        body: `<div class="message">${image}<h1>Garden</h1><p>${'No reading this. '.repeat(20)}</p></div>`,
        rules: {
            '.message': {
                display: 'flex',
                'flex-direction': 'column',
                'align-items': 'center',
                'justify-content': 'center',
                'min-height': '640px', // of 800
                gap: '6px',
                'text-align': 'center',
                color: '--muted',
            },
            '.message img': { width: '96px', height: '96px', 'margin-bottom': '8px' },
            '.message h1': {
                'font-weight': '600',
                'font-size': '20px',
                'line-height': '25px',
                color: '--fg',
                ...display,
            },
            '.message p': { 'max-width': '420px' },
        },
    },
};

let browser;
before(async () => {
    browser = await launch();
});
after(() => browser.close());

const pathOf = {};
const show = async (kind, options) => {
    pathOf[kind] ??= await fixture(samples[kind].bodyClass, samples[kind].body);
    return open(browser, pathOf[kind], options);
};

/** A sample page for the length of the test `t`. */
const sample = async (t, kind, options) => {
    const page = await show(kind, options);
    t.after(() => leave(page));
    return page;
};

const rgb = (hex) => `rgb(${[1, 3, 5].map((at) => parseInt(hex.slice(at, at + 2), 16)).join(', ')})`;

// A hundredth of a pixel is nothing that anyone sees, nor that engines agree on.
const rounded = (value) => value.replace(/-?\d+\.\d+/g, (number) => String(Number(Number(number).toFixed(2))));

const computed = (page, selector, names) => {
    const [element, pseudo] = selector.split('::');
    return page.evaluate(
        ({ element, pseudo, names }) => {
            const style = getComputedStyle(document.querySelector(element), pseudo);
            return Object.fromEntries(names.map((name) => [name, style.getPropertyValue(name)]));
        },
        { element, pseudo: pseudo && `::${pseudo}`, names },
    );
};

const boxes = (page, ...selectors) =>
    page.evaluate(
        (selectors) =>
            selectors.map((selector) => {
                const { left, top, right, bottom, width, height } = document
                    .querySelector(selector)
                    .getBoundingClientRect();
                return { left, top, right, bottom, width, height };
            }),
        selectors,
    );

/** Waits for a hover or a transition to have its effect. */
async function becomes(page, selector, name, expected) {
    let value;
    for (const start = Date.now(); Date.now() - start < 2000;) {
        value = (await computed(page, selector, [name]))[name];
        if (value === expected) return;
    }
    assert.equal(value, expected);
}

for (const scheme of ['light', 'dark']) {
    describe(`in the ${scheme}`, () => {
        test('the custom properties', async (t) => {
            const page = await sample(t, 'listing', { scheme });
            const values = await page.evaluate((names) => {
                const probe = document.body.appendChild(document.createElement('div'));
                return Object.fromEntries(
                    names.map((name) => {
                        probe.style.color = `var(${name})`;
                        return [name, getComputedStyle(probe).color];
                    }),
                );
            }, Object.keys(colours[scheme]));
            for (const [name, hex] of Object.entries(colours[scheme])) {
                assert.equal(values[name], rgb(hex), name);
            }
        });

        for (const [kind, { rules }] of Object.entries(samples)) {
            describe(`the ${kind} page`, () => {
                let page;
                before(async () => {
                    page = await show(kind, { scheme });
                });
                after(() => leave(page));

                for (const [selector, style] of Object.entries(rules)) {
                    test(selector, async () => {
                        const actual = await computed(page, selector, Object.keys(style));
                        for (const [name, expected] of Object.entries(style)) {
                            if (expected instanceof RegExp) {
                                assert.match(actual[name], expected, name);
                            } else {
                                const value = expected.startsWith('--') ? rgb(colours[scheme][expected]) : expected;
                                assert.equal(rounded(actual[name]), rounded(value), name);
                            }
                        }
                    });
                }
            });
        }

        test('links are underlined in the text colour under the pointer', async (t) => {
            const page = await sample(t, 'listing', { scheme });
            await page.hover('#prose a');
            await becomes(page, '#prose a', 'text-decoration-color', rgb(colours[scheme]['--fg']));
        });

        test('rows are filled under the pointer', async (t) => {
            const page = await sample(t, 'listing', { scheme });
            for (const row of ['#file', '#leaf', '#opened > summary > .row']) {
                await page.hover(row);
                await becomes(page, row, 'background-color', rgb(colours[scheme]['--fill']));
            }
        });

        test('a thematic break is one strong line', async (t) => {
            const page = await sample(t, 'markdown', { scheme });
            const style = await computed(page, 'hr', ['border-top-width', 'border-top-color', 'background-color']);
            const colour = style['border-top-width'] === '0px' ? 'background-color' : 'border-top-color';
            assert.equal(style[colour], rgb(colours[scheme]['--line-strong']));
            assert.equal((await boxes(page, 'hr'))[0].height, 1);
        });
    });
}

test('every element counts its border and padding as part of its size', async (t) => {
    for (const kind of Object.keys(samples)) {
        const page = await sample(t, kind);
        const others = await page.$$eval('body, body *', (elements) =>
            elements
                .filter((element) => getComputedStyle(element).boxSizing !== 'border-box')
                .map((element) => element.tagName),
        );
        assert.deepEqual(others, []);
    }
});

test('a gauge fills from the right', async (t) => {
    const page = await sample(t, 'listing');
    const [gauge, filled] = await boxes(page, '#file small', '#file small i');
    assert.equal(filled.right, gauge.right);
    assert.equal(filled.width, gauge.width / 2);
    assert.equal(filled.height, 3);
});

test('a gauge stays inside its row', async (t) => {
    const page = await sample(t, 'listing');
    const [row, size, gauge] = await boxes(page, '#file', '#file .size', '#file small');
    assert.ok(gauge.bottom < row.bottom, 'above the rule');
    assert.ok(gauge.left >= size.left && gauge.right <= size.right, 'in the column');
});

test('a long name does not push the other columns', async (t) => {
    const page = await sample(t, 'listing');
    const [name, size] = await boxes(page, '#file .name', '#file .size');
    assert.equal(name.width, 658);
    assert.equal(size.width, 96);
});

test('a long name does not push or squeeze what stands beside it', async (t) => {
    const page = await sample(t, 'listing');
    const wholeWidth = (selector) => page.$eval(selector, (element) => element.scrollWidth);
    const [icon, lock] = await boxes(page, '#leaf img', '#leaf .lock');
    assert.equal(icon.width, 18);
    assert.ok(lock.width >= (await wholeWidth('#leaf .lock')) - 1, `the lock has shrunk to ${lock.width}px`);
});

test('a name is indented by its depth', async (t) => {
    const page = await sample(t, 'listing');
    const [row, opened, closed, leaf] = await boxes(
        page,
        '#opened > summary > .row',
        '#opened > summary .chevron',
        '#closed > summary .chevron',
        '#leaf .spacer',
    );
    // The turned chevron's box is as tall as the upright one is wide, so its middle is what stays.
    const middle = (box) => (box.left + box.right) / 2;
    assert.equal(middle(opened), row.left + 8 + 5);
    assert.equal(closed.left, row.left + 8 + 18);
    assert.equal(leaf.left, row.left + 8 + 36);
});

test('a folder has no marker but its chevron, which turns when it opens', async (t) => {
    const page = await sample(t, 'listing');
    const hides = await page.evaluate(() =>
        [...document.styleSheets]
            .flatMap((sheet) => [...sheet.cssRules])
            .some(
                (rule) =>
                    rule.selectorText?.includes('summary::-webkit-details-marker') && rule.style.display === 'none',
            ),
    );
    assert.ok(hides, 'the older marker is hidden as well');

    const chevron = '#closed > summary .chevron';
    await page.click('#closed > summary');
    assert.equal(await page.getAttribute('#closed', 'open'), '');
    await becomes(page, chevron, 'transform', 'matrix(0, 1, -1, 0, 0, 0)');
    await page.click('#closed > summary');
    await becomes(page, chevron, 'transform', 'none');
});

test('line numbers are drawn in their column, wrapped lines too', async (t) => {
    const page = await sample(t, 'text');
    const numbers = await textsBefore(page);
    assert.equal(numbers.length, 3);
    const edges = numbers.map(({ x, width }) => Math.round(x + width));
    for (const { x } of numbers) assert.ok(x > 0, 'not cut off at the left');
    assert.equal(edges[0], edges[1]);
    assert.ok(Math.abs(edges[2] - edges[0]) <= 2, 'about as far right when wrapped');
});

test('the lines of a wrapped text hang past the number', async (t) => {
    const page = await sample(t, 'text');
    const lefts = await page.$eval('.wrap .line', (line) => {
        const range = document.createRange();
        range.selectNodeContents(line);
        const leftOf = new Map(); // by the line's top; a line may consist of several boxes
        for (const { left, top } of range.getClientRects()) {
            leftOf.set(top, Math.min(left, leftOf.get(top) ?? left));
        }
        return [...leftOf.values()];
    });
    assert.ok(lefts.length > 2);
    assert.equal(lefts[1], 80);
    assert.equal(lefts[2], 80);
    assert.ok(Math.abs(lefts[0] - 80) <= 12, `the first line begins at ${lefts[0]}`);
});

test('Markdown lists are indented by two letters', async (t) => {
    const page = await sample(t, 'markdown');
    const [prose, bullet, number] = await boxes(page, '#prose', '#list li', 'ol li');
    assert.equal(bullet.left, prose.left + 28);
    assert.equal(number.left, prose.left + 28);
});

test('Markdown tables are as wide as they need to be, and scroll beyond the page', async (t) => {
    const page = await sample(t, 'markdown');
    const [prose, narrow, wide] = await boxes(page, '#prose', '#narrow', '#wide');
    assert.ok(narrow.width < 200);
    assert.equal(wide.width, prose.width);
    assert.ok(await page.$eval('#wide', (table) => table.scrollWidth > table.clientWidth));
});

test('large images shrink to the page', async (t) => {
    const page = await sample(t, 'markdown');
    const [prose, large] = await boxes(page, '#prose', '#image');
    assert.equal(large.width, prose.width);
});

test('a long message is no wider than is good to read', async (t) => {
    const page = await sample(t, 'message');
    const [message] = await boxes(page, '.message p');
    assert.equal(message.width, 420);
});
