# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Every Chinese text of the application is looked up by translated("room", "text"), those that the
core holds are marked by userText("core", "text"), and each has its English in the translation."""
import pathlib
import re
import xml.etree.ElementTree as ElementTree

from Lint import lint

TRANSLATION = "Quillbar/translations/quillbar_en.ts"
CHINESE = re.compile("[\u3000-\u303f\u3400-\u9fff\uff00-\uffef]")
# A Chinese font, which texts have in English too, gives them the width of a character.
WIDE = re.compile("[“”‘’…]")
CALL = re.compile(r"(?<![.>\w])(translated|userText)\s*\(")
LITERAL = re.compile(r'R"(?P<mark>[^()\s\\]{0,16})\((?P<raw>.*?)\)(?P=mark)"'
                     r'|"(?P<text>(?:\\.|[^"\\\n])*)"', re.DOTALL)
CHARACTER = re.compile(r"u?'[^'\n]'")
ESCAPES = {"n": "\n", "t": "\t", '"': '"', "\\": "\\", "'": "'"}
FIELD = re.compile(r"%[n1-9]|\{[A-Za-z0-9:.<>]*\}")
# What the exchange's amounts are counted in is no text to translate: the application chooses the
# formatter by the language.
UNITS = {"万", "亿", "万亿"}
# Characters that a font is asked for; and a file with its texts in every language.
NO_TEXTS = {"Quillbar/text/ChineseFont.cpp", "Quillbar/login/AutostartEntry.cpp"}
# What reads Chinese characters, and writes none.
NO_CHARACTERS = {"QuillbarCore/catalog/SearchText.cpp", "QuillbarCore/catalog/CoinNames.cpp"}
# The function itself; and an unrelated one of its name.
NO_CALLS = {"Quillbar/platform/Translated.h", "Quillbar/platform/Translated.cpp",
            "Quillbar/window/X11Session.cpp"}


def value_of(match):
    if match["raw"] is not None:
        return match["raw"]
    return re.sub(r"\\(.)", lambda escape: ESCAPES.get(escape[1], escape[1]), match["text"])


def literals(source):
    """Each text of the source, neighbours joined as the compiler does: where it begins and ends, and
    what it says."""
    joined = []
    for match in LITERAL.finditer(source.text):
        # The code keeps the quotes of texts, and blanks those in comments.
        if source.code[match.start()] not in 'R"' or source.code[match.end() - 1] != '"':
            continue
        value = value_of(match)
        if joined and not source.code[joined[-1][1]:match.start()].strip():
            start, _, before = joined.pop()
            joined.append((start, match.end(), before + value))
        else:
            joined.append((match.start(), match.end(), value))
    return joined


def calls(source):
    """Each call: its function, and the texts that are its arguments from the first on."""
    texts = literals(source)
    for match in CALL.finditer(source.code):
        arguments = []
        place = match.end()
        for start, end, value in texts:
            if start < place or len(arguments) == 2:
                continue
            if source.code[place:start].strip(" \n,"):
                break
            arguments.append((start, value))
            place = end
        yield match.start(), match[1], arguments


def room_of(path):
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] == "QuillbarCore":
        return "core"
    return parts[1] if len(parts) > 2 else "app"


def wanted(tree):
    """The texts that the sources have, by room and text, and findings on the way there."""
    texts, findings = {}, []
    for source in tree.sources("Quillbar", "QuillbarCore"):
        room = room_of(source.path)
        known = set()
        for place, function, arguments in calls(source):
            if len(arguments) < 2:
                if room != "core" and source.path not in NO_CALLS:
                    findings.append(source.at(place, "name the room and the text themselves, or "
                                              "the text is never found"))
                continue
            (_, context), (start, text) = arguments
            known.add(start)
            if function != ("userText" if room == "core" else "translated") or context != room:
                findings.append(source.at(start, f'the context of a text here is "{room}", and its '
                                          "function translated in rooms, userText in the core"))
            texts.setdefault((room, text), source.at(start, ""))
        for match in CHARACTER.finditer(source.text):
            if (CHINESE.search(match[0]) and source.code[match.end() - 1] == "0"
                    and source.path not in NO_CHARACTERS):
                findings.append(source.at(match.start(), "write a text that can be translated"))
        for start, _, text in literals(source):
            if start in known or not CHINESE.search(text) or source.path in NO_TEXTS:
                continue
            if room == "core" and text in UNITS:
                continue
            function = "userText" if room == "core" else "translated"
            findings.append(source.at(start, f'write {function}("{room}", "{text[:20]}"), so that '
                                      "the text can be translated"))
    return texts, findings


def written(tree):
    """Of each message of the translation its room, its text, its element <translation>."""
    path = tree.root / TRANSLATION
    root = ElementTree.parse(path).getroot() if path.is_file() else ElementTree.Element("TS")
    for context in root.iter("context"):
        for message in context.iter("message"):
            yield context.findtext("name"), message.findtext("source"), message.find("translation")


def fields(text):
    """Numbered ones may stand in any order; the others are filled in one after the other."""
    found = [field for field in FIELD.findall(text) if field != "%n"]
    return sorted(found) if any(field.startswith("%") for field in found) else found


def flaws(text, translation):
    forms = [form.text or "" for form in translation.iter("numerusform")]
    if translation.get("type") or not all(forms or [translation.text]):
        yield "is not translated; run tools/translate.sh and write its English"
        return
    for form in forms or [translation.text]:
        if fields(form) != fields(text):
            yield f'has other fields than its translation "{form[:40]}": {fields(text)}'
        if text.endswith("\n") != form.endswith("\n"):
            yield "and its translation do not both end a line"
        if CHINESE.search(form) and form != text:
            yield f'has a translation with Chinese characters: "{form[:40]}"'
        if WIDE.search(form):
            yield f'has wide quotes or dots in its translation: "{form[:40]}"'
    if "%n" in text and not forms:
        yield "counts, and its translation has no form for one and for many"
    if forms and "%n" not in forms[-1]:
        yield "counts, and its translation for many does not say how many"


def check(tree):
    texts, findings = wanted(tree)
    yield from findings
    found = set()
    for room, text, translation in written(tree):
        found.add((room, text))
        name = f'{TRANSLATION}: "{text[:40]}" of {room}'
        if (room, text) not in texts:
            yield f"{name} is in no source any longer; run tools/translate.sh"
            continue
        for flaw in flaws(text, translation):
            yield f"{name} {flaw}"
    for (room, text), place in texts.items():
        if (room, text) not in found:
            yield f'{place}"{text[:40]}" is not in {TRANSLATION}; run tools/translate.sh'


def project(code, *messages, path="Quillbar/panel/A.cpp", context="panel"):
    body = "".join(f"<message><source>{source}</source>{translation}</message>"
                   for source, translation in messages)
    return {path: code, TRANSLATION: f"<TS><context><name>{context}</name>{body}</context></TS>"}


def done(text):
    return f"<translation>{text}</translation>"


def counted(*forms):
    return done("".join(f"<numerusform>{form}</numerusform>" for form in forms))


NAME = 'translated("panel", "名称");'
COUNT = 'translated("panel", "%n 分钟", nullptr, minutes);'

lint(check,
     bad=[project('text = "名称";'),
          project('text = QStringLiteral("名称");', ("名称", done("Name"))),
          project('text = R"(名称)";'),
          project('translated("panel", "名称"); other = "名称";', ("名称", done("Name"))),
          project('translated("panel", other, "名称");', ("名称", done("Name"))),
          project(NAME),
          project(NAME, ("名称", '<translation type="unfinished">Name</translation>')),
          project(NAME, ("名称", '<translation type="vanished">Name</translation>')),
          project(NAME, ("名称", done(""))),
          project(NAME, ("名称", done("Name")), ("价格", done("Price"))),
          project(NAME, ("名称", done("Name")), context="boards"),
          project(NAME, ("名称", done("Name")), path="Quillbar/boards/A.cpp"),
          project(NAME, ("名称", done("Name，and more"))),
          project(NAME, ("名称", done("A “name”"))),
          project(NAME, ("名称", done("Name…"))),
          project('translated("panel", "%1 和 %2");', ("%1 和 %2", done("%1 and"))),
          project('translated("panel", "{} 和 {:.2}");', ("{} 和 {:.2}", done("{} and {}"))),
          project('translated("panel", "一\\n");', ("一\n", done("One"))),
          project(COUNT, ("%n 分钟", counted("%n minute", ""))),
          project(COUNT, ("%n 分钟", counted("%n minute", "minutes"))),
          project(COUNT, ("%n 分钟", done("%n minutes"))),
          project("separator = u'，';"),
          project('translated("panel", name);'),
          project('translated(room, "Name");'),
          project('translated("panel", "{} 和 {:.2}");', ("{} 和 {:.2}", done("{:.2} and {}"))),
          project('name = "今日";', path="QuillbarCore/model/A.cpp", context="core"),
          project('translated("core", "今日");', ("今日", done("Today")),
                  path="QuillbarCore/model/A.cpp", context="core")],
     good=[project("// 名称 is a name\nint a;"),
           project("shadow.translated(x, y);"),
           project("rise = '≥'; comma = ',';"),
           project(NAME, ("名称", done("Name"))),
           project('translated("panel",\n"名" // half\n"称");', ("名称", done("Name"))),
           project('translated("app", "名称");', ("名称", done("Name")),
                   path="Quillbar/A.cpp", context="app"),
           project('translated("panel", R"(用法 {symbol}\n)");',
                   ("用法 {symbol}\n", done("Use {symbol}\n"))),
           project('translated("panel", "%1 和 %2");', ("%1 和 %2", done("%2 and %1"))),
           project('translated("panel", "简体中文");', ("简体中文", done("简体中文"))),
           project(COUNT, ("%n 分钟", counted("a minute", "%n minutes"))),
           project('sample = "名称";', path="Quillbar/text/ChineseFont.cpp"),
           project('unit = "万亿";', path="QuillbarCore/model/A.cpp", context="core"),
           project('name = userText("core", "今日");', ("今日", done("Today")),
                   path="QuillbarCore/model/A.cpp", context="core")])
