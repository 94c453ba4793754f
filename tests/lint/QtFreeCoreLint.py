# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""The core has no Qt but in the few sources that talk to sockets and the event loop."""
import re

from Lint import lint, without_comments

PERMITTED = re.compile(r"QuillbarCore/(exchange/URLSession(Fetcher|WebSocket)|runtime/Qt\w+)\.cpp")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*[<"]([Qq][A-Z][^>"]*|Qt\w+/[^>"]*|q\w+\.h)[>"]',
                     re.MULTILINE)
NAME = re.compile(r"\b(?:Q(?!UILLBAR)[A-Z]\w*|Q_\w+|Qt::\w+)")
INTERFACE = re.compile(r'#[ \t]*include[ \t]*[<"](?:Qt(?:Gui|Widgets)/|Q(?:Widget|Painter|Gui|'
                       r'Application|Window|Screen|Color|Image|Pixmap|Icon|Font|Menu|Label))')


def check(tree):
    for source in tree.sources("QuillbarCore"):
        includes = without_comments(source.text)
        for match in INTERFACE.finditer(includes):
            yield source.at(match.start(), "the core takes no user-interface module: draw in "
                            "Quillbar/, and give the core what it needs as a value")
        if PERMITTED.fullmatch(source.path):
            continue
        for match in INCLUDE.finditer(includes):
            yield source.at(match.start(), f"{match[1]}: no Qt here. Use the standard type, or "
                            "put an interface in the core and its Qt side in "
                            "QuillbarCore/runtime/Qt*.cpp, behind a header without Qt")
        for match in NAME.finditer(source.code):
            yield source.at(match.start(), f"{match[0]}: no Qt here, not even forward-declared. "
                            "Hide it behind a pimpl in QuillbarCore/runtime/Qt*.cpp")


lint(check,
     bad=[{"QuillbarCore/model/A.cpp": "#include <QString>\n"},
          {"QuillbarCore/model/A.cpp": "#include <QtCore/qglobal.h>\n"},
          {"QuillbarCore/runtime/QtExecutor.h": "class QObject;\n"},
          {"QuillbarCore/exchange/URLSessionFetcher.h": "#include <QNetworkReply>\n"},
          {"QuillbarCore/exchange/BinanceDecoder.cpp": "QJsonDocument d;\n"},
          {"QuillbarCore/state/A.h": "class A { Q_OBJECT };\n"},
          {"QuillbarCore/runtime/QtExecutor.cpp": "#include <QWidget>\n"}],
     good=[{"QuillbarCore/runtime/QtExecutor.cpp": "#include <QCoreApplication>\nQTimer t;\n"},
           {"QuillbarCore/exchange/URLSessionWebSocket.cpp": "#include <QWebSocket>\n"},
           {"QuillbarCore/runtime/QtExecutor.h": "// Runs on QCoreApplication's loop.\n"
                                                 "class QtExecutor {};\n"},
           {"QuillbarCore/model/A.h": "struct QuoteVolume {}; auto v = QUILLBAR_VERSION;\n"},
           {"QuillbarCore/model/A.cpp": 'log("QString");\n'},
           {"Quillbar/panel/PanelView.cpp": "#include <QWidget>\n"}])
