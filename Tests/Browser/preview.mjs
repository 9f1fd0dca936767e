// Makes previews with the program under test and opens them in Chromium.

import assert from 'node:assert/strict';
import { execFile } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { promisify } from 'node:util';

const { chromium } = await import('playwright-core').catch(() => {
    throw new Error('playwright-core is missing: run "npm ci" in Tests/Browser, or scripts/test');
});

const binary = process.env.QUILLMAR_BINARY;
if (!binary) {
    throw new Error('QUILLMAR_BINARY names no program: it is the built QuillmarQuickLook; ctest sets it');
}

/** A folder for one test file's inputs and pages; gone when the process ends. */
export const folder = mkdtempSync(join(tmpdir(), 'quillmar-browser-'));
process.on('exit', () => rmSync(folder, { recursive: true, force: true }));

let pages = 0;

const run = (...words) => promisify(execFile)(binary, words, { timeout: 60_000 });

/** The path of a new file with this content. Every file has a folder of its own, so that names never meet. */
export function file(name, content) {
    const path = join(mkdtempSync(join(folder, 'item-')), name);
    writeFileSync(path, content);
    return path;
}

/** The preview of the item at `path` as one self-contained page: the path of an HTML file. */
export async function pageFor(path) {
    const html = join(folder, `page-${++pages}.html`);
    await run('--html', html, path);
    return html;
}

/** The size in points that the preview of the item at `path` asks for. */
export async function sizeOf(path) {
    const output = mkdtempSync(join(folder, 'output-'));
    await run('--output', output, path);
    const { width, height } = JSON.parse(readFileSync(join(output, 'preview.json'), 'utf8'));
    return { width, height };
}

/** A page with the stylesheet of a real preview around other markup. */
export async function fixture(bodyClass, body) {
    const preview = readFileSync(await pageFor(file('stylesheet.txt', 'Only the head of this page is used.')), 'utf8');
    const head = /<head>[^]*<\/head>/.exec(preview)[0];
    return file('fixture.html', `<!DOCTYPE html><html>${head}<body class="${bodyClass}">${body}</body></html>`);
}

export const launch = () =>
    chromium.launch({
        executablePath: process.env.QUILLMAR_CHROMIUM ?? '/usr/bin/chromium',
        args: [
            '--headless',
            '--no-sandbox', // there is none for root, and the pages are our own
            '--disable-gpu',
            // Nothing may leave the machine, neither a page's requests nor the browser's own.
            '--host-resolver-rules=MAP * ~NOTFOUND, EXCLUDE 127.0.0.1',
            '--disable-background-networking',
            '--disable-component-update',
            '--disable-quic',
            '--disable-sync',
            '--no-first-run',
        ],
    });

const contexts = new Map();
const idleTabs = new Map();

/** A tab of a context that is shared, because one in a new context takes three times as long. */
async function newTab(browser, options) {
    const kind = JSON.stringify(options);
    if (!contexts.has(kind)) contexts.set(kind, browser.newContext(options));
    const page = await (await contexts.get(kind)).newPage();
    page.kind = kind;
    page.on('request', (request) => {
        const isInside = request.url() === page.preview || request.url().startsWith('data:');
        if (!isInside) page.happenings.push(`request of ${request.url()}`);
    });
    // Chromium announces a request first and asks the page's own policy then.
    page.on('requestfailed', (request) => {
        if (request.failure().errorText !== 'csp') return;
        const announced = page.happenings.indexOf(`request of ${request.url()}`);
        if (announced >= 0) page.happenings.splice(announced, 1);
    });
    page.on('dialog', (dialog) => {
        page.happenings.push(`dialog "${dialog.message()}"`);
        return dialog.dismiss();
    });
    page.on('popup', (popup) => page.happenings.push(`window with ${popup.url()}`));
    page.on('console', (message) => {
        if (message.type() === 'log') page.happenings.push(`console "${message.text()}"`);
    });
    return page;
}

/**
 * Opens the HTML file `path` in a tab of `browser`; the caller leaves it.
 *
 * Scripts are off unless asked for, as wherever a preview is shown; what the tests themselves evaluate runs all
 * the same. `page.happenings` collects what no preview may ever cause: requests, dialogs, scripts' words. A
 * `proxy` on this machine answers in place of the network.
 */
export async function open(
    browser,
    path,
    { scheme = 'light', size = { width: 1000, height: 800 }, scripts = false, proxy } = {},
) {
    const options = {
        colorScheme: scheme,
        javaScriptEnabled: scripts,
        viewport: size,
        ...(proxy && { proxy: { server: proxy } }),
    };
    const page = idleTabs.get(JSON.stringify(options))?.pop() ?? (await newTab(browser, options));
    page.preview = pathToFileURL(path).href;
    page.happenings = [];
    await page.goto(page.preview);
    return page;
}

/** Lets the next page be opened in this tab: a new one takes five times as long. */
export async function leave(page) {
    await page.mouse.move(0, 0);
    idleTabs.set(page.kind, [...(idleTabs.get(page.kind) ?? []), page]);
}

/**
 * The texts that `::before` draws, from top to bottom, with their places in the document. Only the browser's own
 * snapshot knows them: no element and no computed style holds a counter's value.
 */
export async function textsBefore(page) {
    const session = await page.context().newCDPSession(page);
    const { documents, strings } = await session.send('DOMSnapshot.captureSnapshot', { computedStyles: [] });
    const [{ nodes, layout }] = documents;
    const pseudo = new Set(nodes.pseudoType.index.filter((_, i) => strings[nodes.pseudoType.value[i]] === 'before'));
    const isDrawnBefore = (node) => pseudo.has(node) || pseudo.has(nodes.parentIndex[node]);
    return layout.nodeIndex.flatMap((node, i) => {
        if (layout.text[i] < 0 || !isDrawnBefore(node)) return [];
        const [x, y, width, height] = layout.bounds[i];
        return [{ text: strings[layout.text[i]], x, y, width, height }];
    });
}

/** Every element of the page must be one of ours, and none may carry code or an address. */
export async function assertNothingForeign(page) {
    const ours = 'html head meta title style body div header h1 p span img b i small details summary'.split(' ');
    const foreign = await page.$$eval(
        '*',
        (elements, ours) =>
            elements
                .filter(
                    ({ localName, attributes }) =>
                        !ours.includes(localName) ||
                        [...attributes].some(({ name }) => name.startsWith('on') || name === 'href') ||
                        (localName === 'img' && !attributes.src.value.startsWith('data:image/')),
                )
                .map((element) => element.outerHTML),
        ours,
    );
    assert.deepEqual(foreign, []);
    assert.deepEqual(page.happenings, []);
}
