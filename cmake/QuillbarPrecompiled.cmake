# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Headers from outside that most sources include. Reading them takes longer than compiling a source
# of ours, so each set is compiled once and shared by many targets. No header of ours is in a set: a
# change of one would compile everything anew. Every source still includes what it uses.

set(QUILLBAR_STANDARD_HEADERS
    <algorithm> <array> <charconv> <chrono> <cmath> <coroutine> <cstddef> <cstdint> <exception>
    <filesystem> <functional> <iterator> <limits> <map> <memory> <optional> <set> <span>
    <stdexcept> <string> <string_view> <system_error> <unordered_map> <utility> <variant> <vector>
    <boost/signals2/connection.hpp> <fmt/format.h>)

set(QUILLBAR_QT_HEADERS
    <QAbstractButton> <QAccessible> <QAccessibleWidget> <QAction> <QApplication> <QByteArray>
    <QDBusConnection> <QDBusMessage> <QDBusPendingCallWatcher> <QDBusPendingReply> <QDBusVariant>
    <QDateTime> <QFontMetricsF> <QGuiApplication> <QImage> <QKeyEvent> <QLabel> <QLineEdit>
    <QLocale> <QMenu> <QMouseEvent> <QNetworkAccessManager> <QNetworkReply> <QNetworkRequest>
    <QObject> <QPainter> <QPainterPath> <QPixmap> <QPointer> <QProcess> <QScreen> <QSslSocket>
    <QString> <QStringList> <QTcpServer> <QTcpSocket> <QTimer> <QUrl> <QVBoxLayout> <QVariantMap>
    <QWidget> <QWindow>)

set(QUILLBAR_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h>)
# By its whole path, because Qt6::Test defines macros that differ from folder to folder and so
# cannot be shared.
set(QUILLBAR_QT_TEST_HEADERS <QtTest/QTest> <QUuid>)

# quillbar_precompiled(NAME HEADERS ... LIBRARIES ...) makes a set that targets share through
# quillbar_precompile. LIBRARIES are where its headers come from.
function(quillbar_precompiled name)
    cmake_parse_arguments(SET "" "" "HEADERS;LIBRARIES" ${ARGN})
    # A set belongs to a target, and a target needs a source.
    set(source "${CMAKE_CURRENT_BINARY_DIR}/precompiled/${name}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "")
    add_library(quillbar_precompiled_${name} OBJECT "${source}")
    target_link_libraries(quillbar_precompiled_${name} PRIVATE quillbar_flags ${SET_LIBRARIES})
    target_precompile_headers(quillbar_precompiled_${name} PRIVATE ${SET_HEADERS})
endfunction()

# quillbar_precompile(TARGET SET) lets a target use a set: core, qt, test or qt_test.
function(quillbar_precompile target set)
    target_precompile_headers(${target} REUSE_FROM quillbar_precompiled_${set})
endfunction()

set(core_libraries fmt::fmt Boost::headers)
set(qt_libraries ${core_libraries} Qt6::Core Qt6::DBus Qt6::Gui Qt6::Network Qt6::Widgets)
quillbar_precompiled(core HEADERS ${QUILLBAR_STANDARD_HEADERS} LIBRARIES ${core_libraries})
if(NOT QUILLBAR_CORE_ONLY)
    quillbar_precompiled(qt
        HEADERS ${QUILLBAR_STANDARD_HEADERS} ${QUILLBAR_QT_HEADERS}
        LIBRARIES ${qt_libraries})
endif()
if(QUILLBAR_TESTS)
    quillbar_precompiled(test
        HEADERS ${QUILLBAR_STANDARD_HEADERS} ${QUILLBAR_TEST_HEADERS}
        LIBRARIES ${core_libraries} GTest::gmock GTest::gtest)
    if(NOT QUILLBAR_CORE_ONLY)
        quillbar_precompiled(qt_test
            HEADERS
                ${QUILLBAR_STANDARD_HEADERS} ${QUILLBAR_QT_HEADERS}
                ${QUILLBAR_TEST_HEADERS} ${QUILLBAR_QT_TEST_HEADERS}
            LIBRARIES ${qt_libraries} GTest::gmock GTest::gtest)
    endif()
endif()
