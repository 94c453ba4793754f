# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Makes what the options of a program appear in, from the one table in packaging/options.json.

    make.py manual PROGRAM LANGUAGE VERSION   the manual page: packaging/manuals/PROGRAM.LANGUAGE.scd,
                                              filled in and put through scdoc
    make.py completion PROGRAM SHELL          what bash, zsh or fish completes for the program

Both go to standard output. LANGUAGE is en or zh_CN.
"""
import json
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
TABLE = json.loads((HERE / "options.json").read_text(encoding="utf-8"))


def escaped(text):
    """Text in which scdoc sees no mark of its own."""
    return re.sub(r"([\\*_<>#~])", r"\\\1", text)


def entry(term, text):
    return f"{term}\n\t{escaped(text)}\n"


def option_term(option, language):
    term = f"*{option['name']}*"
    if "letter" in option:
        term = f"*{option['letter']}*, {term}"
    if "argument" in option:
        term += f" _{option['argument'][language]}_"
    return term


def tidy(page):
    """The page as mandoc wants it: terms as .TP, no empty paragraphs, no long lines."""
    lines = page.splitlines()
    kept = []
    begins_paragraph = False
    closes_term = []
    for line, following in zip(lines, lines[1:] + [""]):
        if line in (".P", ".PP"):
            begins_paragraph = True
        elif line == ".RS 4":
            closes_term.append(kept[-1] != ".nf")
            kept += [] if closes_term[-1] else [line]
        elif line == ".RE":
            begins_paragraph = True
            kept += [] if closes_term.pop() else [line]
        elif line.startswith(".TH "):
            kept.append(re.sub(r'"[^"]*"', lambda title: title[0].upper(), line, count=1))
        elif line.startswith(".SH"):
            kept.append(line)
            begins_paragraph = False
        elif line.startswith((".", "'")):
            kept += [".PP", line] if line == ".nf" else [line]
            begins_paragraph = False
        elif following == ".RS 4":
            kept += [".TP 4", line]
            begins_paragraph = False
        else:
            kept += [".PP"] if begins_paragraph and not kept[-1].startswith(".SH") else []
            kept += wrapped(line)
            begins_paragraph = False
    return "\n".join(kept) + "\n"


def wrapped(text):
    """The text in lines that mandoc finds short enough, broken at spaces alone."""
    if text.startswith(" "):
        return [text]  # Part of an example.
    # Chinese has no spaces at which groff could break a line.
    text = re.sub("([、。,;])", r"\1\\:", text)
    lines = []
    for word in text.split(" "):
        # A line that began with a dot or a quote would be a request.
        fits = lines and size(f"{lines[-1]} {word}") <= 80
        if lines and (fits or word[:1] in (".", "'")):
            lines[-1] += " " + word
        else:
            lines.append(word)
    return lines


def size(text):
    """How long mandoc takes it to be: what is not ASCII counts as its escape, such as \\[u5728]."""
    return sum(1 if character.isascii() else len(f"\\[u{ord(character):04X}]")
               for character in text)


def manual(program, language, version):
    texts = language.split("_")[0]
    table = TABLE[program]
    parts = {
        "VERSION": version,
        "OPTIONS": "\n".join(entry(option_term(option, texts), option[texts])
                             for option in table["options"]),
        "STATUSES": "\n".join(entry(f"*{status['value']}*", status[texts])
                              for status in table["statuses"]),
        "VARIABLES": "\n".join(entry(f"*{name}*", TABLE["variables"][name][texts])
                               for name in table["variables"]),
    }
    text = (HERE / f"manuals/{program}.{language}.scd").read_text(encoding="utf-8")
    text = re.sub(r"@([A-Z]+)@", lambda match: parts[match[1]].rstrip("\n"), text)
    return tidy(subprocess.run(["scdoc"], input=text, capture_output=True, encoding="utf-8",
                               check=True).stdout)


def words(option):
    return [option["letter"], option["name"]] if "letter" in option else [option["name"]]


def bash(program, table):
    function = "_" + program.replace("-", "_")
    # An argument without choices is the user's own.
    choices = "".join(f"    {option['name']})\n"
                      "        COMPREPLY=($(compgen -W "
                      f"\"{' '.join(option.get('choices', []))}\" -- \"$word\"))\n"
                      "        return\n"
                      "        ;;\n"
                      for option in table["options"] if "argument" in option)
    if choices:
        # A value behind an equals sign comes as a word of its own.
        choices = ('    [ "$before" != = ] || before=${COMP_WORDS[COMP_CWORD - 2]}\n'
                   "    [ \"$word\" != = ] || word=''\n"
                   f'    case "$before" in\n{choices}    esac\n')
    names = " ".join(option["name"] for option in table["options"])
    return (f"{function}() {{\n"
            '    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}\n'
            f"{choices}"
            f'    COMPREPLY=($(compgen -W "{names}" -- "$word"))\n'
            "}\n"
            f"complete -F {function} {program}\n")


def zsh(program, table):
    lines = []
    for option in table["options"]:
        name = option["name"]
        against = [other for other in table["oneOf"] if other != name]
        before = f"({' '.join(against)})" if name in table["oneOf"] else ""
        text = option["short"].replace("'", "'\\''")
        if name in ("--help", "--version"):
            before = "(- *)"
        if "argument" in option:
            kind = option["argument"]["en"].lower()
            choices = f"({' '.join(option['choices'])})" if "choices" in option else " "
            again = "*" if option.get("repeats") else ""
            lines.append(f"'{again}{name}=[{text}]:{kind}:{choices}'")
        else:
            lines += [f"'{before}{word}[{text}]'" for word in words(option)]
    return f"#compdef {program}\n\n_arguments \\\n    " + " \\\n    ".join(lines) + "\n"


def fish(program, table):
    lines = [f"complete -c {program} -f"]
    for option in table["options"]:
        line = f"complete -c {program} -l {option['name'][2:]}"
        if "letter" in option:
            line += f" -s {option['letter'][1:]}"
        if "argument" in option:
            line += " -x"
        if "choices" in option:
            line += f" -a '{' '.join(option['choices'])}'"
        text = option["short"].replace("'", "\\'")
        lines.append(f"{line} -d '{text}'")
    return "\n".join(lines) + "\n"


def completion(program, shell):
    text = {"bash": bash, "zsh": zsh, "fish": fish}[shell](program, TABLE[program])
    head, rest = text.split("\n", 1) if text.startswith("#compdef") else ("", text)
    comment = ("# SPDX-FileCopyrightText: 2026 The Quillbar developers\n"
               "# SPDX-License-Identifier: MIT\n")
    return (head + "\n" if head else "") + comment + rest


def main(kind, *arguments):
    sys.stdout.reconfigure(encoding="utf-8")
    sys.stdout.write({"manual": manual, "completion": completion}[kind](*arguments))


if __name__ == "__main__":
    main(*sys.argv[1:])
