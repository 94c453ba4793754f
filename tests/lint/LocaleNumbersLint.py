# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""No number is written or read by a call that follows the process's locale."""
import re

from Lint import PRODUCT, lint, without_comments

CALLS = [
    (r"\bv?(?:f|s|sn|as|d)?w?printf\s*\(|\bv?swprintf\s*\(", "write it with fmt::format"),
    (r"\bv?[fs]?w?scanf\s*\(", "read it with std::from_chars"),
    (r"\b(?:strto(?:d|f|ld)|wcstod|atof|sto(?:d|f|ld))\s*\(", "read it with std::from_chars"),
    # A whole number is safe, and only these arguments show that they are none.
    (r"\bstd\s*::\s*to_w?string\s*\(\s*(?:[-\d]*\d\.|static_cast<\s*(?:double|float)\s*>)",
     "write it with fmt::to_string"),
    (r"\b[io]?stringstream\b", "write with fmt::format, read with std::from_chars"),
    (r"\bstd\s*::\s*(?:cout|cerr|clog|cin)\b", "write with fmt::print or std::fwrite"),
    (r"\b(?:put|get)_(?:money|time)\b|\bstd\s*::\s*strftime\b|\bstrftime\s*\(",
     "format the calendar's fields with fmt"),
]
FINDERS = [(re.compile(pattern), advice) for pattern, advice in CALLS]
FMT_LOCALE = re.compile(r"\{[\w.]*:[^{}\n]*L[a-zA-Z]?\}")


def check(tree):
    for source in tree.sources(*PRODUCT):
        for finder, advice in FINDERS:
            for match in finder.finditer(source.code):
                yield source.at(match.start(), f"{match[0].rstrip('( ')}: writes or reads 1,5 for "
                                f"1.5 under a German locale; {advice}")
        for match in FMT_LOCALE.finditer(without_comments(source.text)):
            yield source.at(match.start(), f"{match[0]}: fmt's L follows the locale; leave it out")


def sample(code):
    return {"QuillbarCore/model/A.cpp": code + "\n"}


lint(check,
     bad=[sample('std::snprintf(buffer, sizeof buffer, "%f", x);'),
          sample('printf("%g", x);'),
          sample("auto x = std::strtod(text, &end);"),
          sample("auto x = atof(text);"),
          sample("auto x = std::stod(text);"),
          sample("auto x = std::stof(text);"),
          sample("auto t = std::to_string(1.5);"),
          sample("auto t = std::to_string(static_cast<double>(x));"),
          sample("std::istringstream in(text);"),
          sample("std::ostringstream out;"),
          sample("std::stringstream both;"),
          sample("std::cout << 1.5;"),
          sample('fmt::format("{:L}", 1.5);'),
          sample('fmt::format("{0:.2Lf}", 1.5);'),
          {"Quillbar/label/A.cpp": 'fprintf(stderr, "%f", x);\n'},
          {"simulator/A.h": "std::stold(text);\n"}],
     good=[sample('fmt::format("{:.2f}", 1.5); // not printf("%f")'),
           sample("std::to_string(index); fmt::print(stderr, text);"),
           sample("std::from_chars(first, last, x); std::strtoll(text, &end, 10);"),
           sample('log("printf(");'),
           {"tests/model/ATest.cpp": 'std::snprintf(buffer, 9, "%f", x);\n'}])
