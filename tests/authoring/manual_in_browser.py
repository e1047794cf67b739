#!/usr/bin/env python3
"""manual_in_browser.py KELCONF EXAMPLES CHROMIUM TIDY

The manual as its readers have it: an HTML checker and headless Chromium look at those of an example and of a
configuration that does its worst. Says what is wrong, one line each; the exit status is 0 when nothing is.
"""
import json
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import urllib.parse

WIDTHS = (390, 1200)

# Measures the page and tells the one around it.
PROBE = """<script>
const links = [...document.querySelectorAll('a[href]')];
const lost = links.filter(a => !a.hash || !document.getElementById(decodeURIComponent(a.hash.slice(1))));
const wide = [...document.querySelectorAll('body *')].filter(e => e.getBoundingClientRect().right > innerWidth + 1);
const seen = [...document.querySelectorAll('details svg')].filter(e => e.checkVisibility());
parent.postMessage({inner: innerWidth, scroll: document.documentElement.scrollWidth, links: links.length,
  lost: lost.map(a => a.href), wide: wide.slice(0, 5).map(e => e.outerHTML.slice(0, 80)), editorsSeen: seen.length,
  scripts: document.scripts.length, loaded: performance.getEntriesByType('resource').length}, '*');
</script>
"""

# A window cannot be as narrow as a phone, a frame can. The answers are left where --dump-dom shows them.
FRAMES = """<!DOCTYPE html><title>frames</title><pre id="answers"></pre><script>
const answers = [];
onmessage = message => {
  answers.push(message.data);
  document.getElementById('answers').textContent = encodeURIComponent(JSON.stringify(answers));
};
</script>
"""

problems = []


def expect(holds, what):
    if not holds:
        problems.append(what)


def write_worst(root):
    """Names of markup, very long ones, other scripts, and secrets wherever there can be one."""
    def entry(name, title, oid, rest):
        title = title.replace('&', '&amp;').replace('<', '&lt;')
        return f'<GROUP name="{name}"><DisplayName>{title}</DisplayName><OID>{oid}</OID>{rest}</GROUP>\n'

    text = '<Type>Octet String</Type>'
    number = '<Type>Integer</Type>'
    menu = entry('A', '<script>alert(1)</script> & "q" \'s\' </style> --> ]]>', '1.1', text +
                 '<ShortDesc>&lt;img src=x onerror=alert(1)&gt;</ShortDesc><DefVal>&lt;/dd&gt;&amp;amp;</DefVal>')
    menu += entry('B', 'W' * 2000, '1.2', text + '<DefVal>' + 'w' * 5000 + '</DefVal><ShortDesc>' + 'd' * 900 +
                  '</ShortDesc>')
    menu += entry('C', '網路設定', '1.3', number + '<ChoiceFmt>0#關閉|1#開啟</ChoiceFmt><DefVal>1</DefVal>')
    menu += entry('D', 'إعدادات الشبكة', '1.4', number + '<ChoiceFmt>0#إيقاف|1#تشغيل</ChoiceFmt>'
                  '<Dependency>IF 網路設定 EQ 1 THEN NoEdit</Dependency>')
    menu += entry('E', 'Pass', '1.5', '<Type>Password</Type><DefVal>hush-hush</DefVal>')
    menu += entry('F', 'Key', '1.6', '<Type>Hex</Type><WEP>Set</WEP><DefVal>hush-hush</DefVal>')
    menu += entry('G', 'Stars', '1.7', text + '<PassWordChar>*</PassWordChar><DefVal>hush-hush</DefVal>')
    menu += entry('H', 'Passphrase', '1.8', text + '<DefVal>hush-hush</DefVal>')
    menu += entry('I', 'Rules', '1.9', '<Type>Bool</Type><Dependency>IF Pass EQ hush-hush THEN NoEdit</Dependency>'
                  '<Dependency1>1.7|Octet String|hush-hush|Refresh</Dependency1>')
    menu += ('<GROUP name="J"><DisplayName>Command</DisplayName><OID>1.10</OID><Type>ReaderCmd</Type>'
             '<CmdString>2,9,2</CmdString><DefVal>hush-hush07</DefVal><GROUP name="P"><Ordinal>1</Ordinal>'
             '<DisplayName>PIN</DisplayName><CmdOID>1.10:1</CmdOID><Type>Password</Type></GROUP><GROUP name="Q">'
             f'<Ordinal>2</Ordinal><DisplayName>Level</DisplayName><CmdOID>1.10:2</CmdOID>{number}</GROUP></GROUP>\n')
    (root / 'Windows').mkdir(parents=True)
    (root / 'Windows/ovu.xml').write_text(f'<GROUP name="R"><DisplayName>Main &lt;b&gt;</DisplayName>{menu}</GROUP>')
    device = [('1.1', 'Octet String', '<b>'), ('1.2', 'Octet String', 'x' * 400), ('1.3', 'Integer', '1'),
              ('1.4', 'Integer', '0'), ('1.5', 'Password', 'hush-hush'), ('1.6', 'Hex', 'hush-hush'),
              ('1.7', 'Octet String', 'hush-hush'), ('1.8', 'Octet String', 'hush-hush'), ('1.9', 'Bool', '1'),
              ('1.10', 'ReaderCmd', 'hush-hush42')]
    (root / 'device.txt').write_text(''.join('\t'.join(line) + '\n' for line in device))


class Browser:
    def __init__(self, program, folder):
        self.command = [program, '--headless', '--no-sandbox', '--disable-gpu', '--disable-dev-shm-usage',
                        '--hide-scrollbars', '--no-first-run', f'--user-data-dir={folder}/profile',
                        '--enable-logging=stderr']

    def run(self, page, *options):
        done = subprocess.run([*self.command, *options, page.as_uri()], capture_output=True, text=True, timeout=120,
                              check=True)
        # "[1122/121114.213:INFO:CONSOLE(1)] ..." is a message of the page; the others are the browser's own.
        said = [line for line in done.stderr.splitlines() if ':CONSOLE' in line]
        expect(not said, f'{page.name}: {said}')
        return done.stdout


def look_at(name, page, browser, tidy):
    html = page.read_text()
    checked = subprocess.run([tidy, '-q', '-e', '-utf8', str(page)], capture_output=True, text=True)
    expect(checked.returncode == 0 and not checked.stderr, f'{name}: {checked.stderr}')
    expect('hush-hush' not in html and 'lighthouse' not in html and 'palletjack' not in html, f'{name}: a secret')
    probed = page.with_suffix('.probed.html')
    probed.write_text(html.replace('</body>', PROBE + '</body>'))
    frames = page.with_suffix('.frames.html')
    frames.write_text(FRAMES + ''.join(f'<iframe width="{width}" height="900" style="border:0" src="{probed.name}">'
                                       '</iframe>' for width in WIDTHS))
    dumped = browser.run(frames, '--window-size=1300,1900', '--virtual-time-budget=20000', '--dump-dom')
    answers = json.loads(urllib.parse.unquote(re.search(r'<pre id="answers">(.*?)</pre>', dumped).group(1) or '[]'))
    expect(sorted(seen['inner'] for seen in answers) == sorted(WIDTHS), f'{name}: measured were {answers}')
    for seen in answers:
        width = seen['inner']
        expect(seen['scroll'] <= width and not seen['wide'], f'{name} at {width} is too wide: {seen}')
        expect(seen['links'] > 10 and not seen['lost'], f'{name}: links that lead nowhere: {seen["lost"]}')
        expect(seen['scripts'] == 1 and seen['loaded'] == 0, f'{name}: scripts or files: {seen}')
        # A phone shows an editor when it is asked for, a wide window at once.
        expect((seen['editorsSeen'] > 0) == (width > 960), f'{name} at {width}: {seen["editorsSeen"]} editors')


def take_pictures(name, page, browser):
    for width in WIDTHS:
        picture = page.with_suffix(f'.{width}.png')
        browser.run(page, f'--window-size={width},900', f'--screenshot={picture}')
        size = struct.unpack('>II', picture.read_bytes()[16:24])
        expect(size == (width, 900) and picture.stat().st_size > 10_000, f'{name}: a picture of {size}')


def main():
    kelconf, examples, chromium, tidy = sys.argv[1:]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        write_worst(folder / 'worst')
        browser = Browser(chromium, folder)
        for title, source in (('forklift', pathlib.Path(examples) / 'forklift'), ('worst', folder / 'worst')):
            page = folder / f'{title}.html'
            subprocess.run([kelconf, 'manual', source, '-o', page], check=True)
            look_at(title, page, browser, tidy)
        take_pictures('forklift', folder / 'forklift.html', browser)
    print('\n'.join(problems))
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main())
