// Markdown documents with pictures beside them, for the tests of their pages.

import { writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';

import { file, leave, open, pageFor } from './preview.mjs';

/** The window that a Markdown page asks for. */
export const size = { width: 900, height: 900 };

/** One colour, 40 by 30. */
const plan = Buffer.from(
    'iVBORw0KGgoAAAANSUhEUgAAACgAAAAeCAIAAADRv8uKAAAAKklEQVR4nO3NMQ0AAAgDsEmcbGQhA44m/ZtpT0QsFovFYrFYLBaL' +
        'xX/jBRp9l9tn2IhZAAAAAElFTkSuQmCC',
    'base64',
);
/** One colour, 3,000 by 300. */
const wide = '<svg xmlns="http://www.w3.org/2000/svg" width="3000" height="300"><rect width="3e3" height="3e3"/></svg>';

/** The preview of this Markdown, open for the length of the test `t`. */
export async function openMarkdown(browser, t, markdown, options) {
    const path = file('notes.md', markdown);
    for (const [name, picture] of [
        ['plan.png', plan],
        ['my plan.png', plan],
        ['wide.svg', wide],
    ]) {
        writeFileSync(join(dirname(path), name), picture);
    }
    const page = await open(browser, await pageFor(path), { size, ...options });
    t.after(() => leave(page));
    return page;
}

export const textsOf = (page, selector) =>
    page.$$eval(selector, (elements) => elements.map((element) => element.textContent));
export const boxOf = (page, selector) => page.$eval(selector, (element) => element.getBoundingClientRect().toJSON());
export const boxesOf = (page, selector) =>
    page.$$eval(selector, (elements) => elements.map((element) => element.getBoundingClientRect().toJSON()));
export const styleOf = (page, selector, name) =>
    page.$eval(selector, (element, name) => getComputedStyle(element).getPropertyValue(name), name);
