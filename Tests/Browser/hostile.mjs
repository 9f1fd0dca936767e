// Names and lines that would be markup, or would hide or turn what stands around them, if nobody saw to it.

export const longestName = 'W'.repeat(251); // with ".txt" the 255 bytes that file systems allow

export const hostileNames = [
    '<img src=x onerror=alert(1)>.txt',
    '<svg onload=alert(1)>.txt',
    '"onmouseover="alert(1)".txt',
    "' onload='alert(1)' '.txt",
    '<!--.txt',
    '&lt;b&gt; &amp; &#60;.txt',
    'two\nlines.txt',
    '🌻 Blumengarten 花園 حديقة.txt',
    '<\u0338script>alert(1).txt', // a mark that combines with the bracket
    '"\u0301 onload=alert(1) x="\u0301.txt',
    '\u0600<b>.txt', // one that is drawn around what follows it
    '\u202Etxt.exe.txt',
    '\u2066<b>\u2069.txt',
    'javascript:alert(1).txt',
    `${longestName}.txt`,
];

export const hostileLines = [
    '<script>alert(1)</script>',
    '</span></div></body></html><script>alert(1)</script>',
    '</style><script>alert(1)</script>',
    '</title><img src=x onerror=alert(1)>',
    '<img src="https://example.com/pixel.png">',
    '<link rel=stylesheet href="https://example.com/style.css">',
    '<meta http-equiv=refresh content="0;url=https://example.com/">',
    '<iframe src="https://example.com/"></iframe>',
    '<a href="javascript:alert(1)" onclick=alert(1) autofocus onfocus=alert(1)>click</a>',
    '<svg><script>alert(1)</script></svg>',
    '<!-- no end',
    '<![CDATA[ no end',
    '&lt;script&gt; &amp;#60; &notanentity; &#x3C;',
    '<\u0338script>alert(1)<\u0338/script>',
    '"\u0301 onload="\u0301alert(1)',
    '\u202Ereversed\u202C and \u2067isolated\u2069',
    'a\u2028separator and a\u2029paragraph',
    '\u{1F468}\u200D\u{1F469}\u200D\u{1F467} family',
    '\u0001\u001B[31mcontrol\u007F',
    ' leading and  double  spaces ',
    '\ttab\tseparated',
];
