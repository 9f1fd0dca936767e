// Takes pictures of previews, to be looked at:
//
//     QUILLMAR_BINARY=build/release/bin/QuillmarQuickLook node Tests/Browser/screenshots.mjs OUTDIR PATH...
//
// For each PATH two files, NAME-light.png and NAME-dark.png, as large as the preview asks to be.

import { mkdirSync } from 'node:fs';
import { basename, join } from 'node:path';

import { launch, open, pageFor, sizeOf } from './preview.mjs';

const [output, ...paths] = process.argv.slice(2);
if (paths.length === 0) {
    console.error('usage: node screenshots.mjs OUTDIR PATH...');
    process.exit(2);
}

mkdirSync(output, { recursive: true });
const browser = await launch();
for (const path of paths) {
    const html = await pageFor(path);
    const size = await sizeOf(path);
    for (const scheme of ['light', 'dark']) {
        const page = await open(browser, html, { scheme, size });
        const picture = join(output, `${basename(path)}-${scheme}.png`);
        await page.screenshot({ path: picture });
        await page.close();
        console.log(picture);
    }
}
await browser.close();
