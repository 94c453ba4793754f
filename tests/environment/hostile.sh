# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
# shellcheck shell=sh
#
# hostile.sh PROGRAM [ARGUMENT...]: starts a program where everything that a machine can have set is
# set to what the tests do not expect. `ctest` started through it must pass as well.

# Language, time, folders.
export LANG=tr_TR.UTF-8 LANGUAGE=tr:zh_CN LC_ALL=tr_TR.UTF-8 LC_NUMERIC=de_DE.UTF-8
export LC_CTYPE=ja_JP.eucJP
export LOCPATH=/nonexistent NLSPATH=/nonexistent/%N GCONV_PATH=/nonexistent ICU_DATA=/nonexistent
export TZ=Pacific/Kiritimati TZDIR=/nonexistent ICU_TIMEZONE_FILES_DIR=/nonexistent
export HOME=/nonexistent USER=nobody LOGNAME=nobody TMPDIR=/nonexistent TMP=/nonexistent
export XDG_CONFIG_HOME=/nonexistent XDG_DATA_HOME=/nonexistent XDG_STATE_HOME=/nonexistent
export XDG_CACHE_HOME=/nonexistent XDG_RUNTIME_DIR=/nonexistent
export XDG_CONFIG_DIRS=/nonexistent XDG_DATA_DIRS=/nonexistent

# The session, its screens and its buses.
export DISPLAY=:47 WAYLAND_DISPLAY=wayland-47 XAUTHORITY=/nonexistent ICEAUTHORITY=/nonexistent
export XDG_SESSION_TYPE=wayland XDG_CURRENT_DESKTOP=KDE XDG_SESSION_DESKTOP=KDE XDG_SEAT=seat47
export XDG_SESSION_ID=47 XDG_VTNR=47 XDG_ACTIVATION_TOKEN=token DESKTOP_STARTUP_ID=token
export DESKTOP_SESSION=plasma KDE_FULL_SESSION=true KDE_SESSION_VERSION=5 GNOME_DESKTOP_SESSION_ID=1
export SWAYSOCK=/nonexistent I3SOCK=/nonexistent SESSION_MANAGER=local/nowhere:/nonexistent
export DBUS_SESSION_BUS_ADDRESS=tcp:host=127.0.0.1,port=9 DBUS_STARTER_BUS_TYPE=session
export DBUS_SYSTEM_BUS_ADDRESS=tcp:host=127.0.0.1,port=9 DBUS_STARTER_ADDRESS=unix:path=/nonexistent
export JOURNAL_STREAM=1:2 NOTIFY_SOCKET=/nonexistent INVOCATION_ID=47 LISTEN_FDS=1 LISTEN_PID=1
export XMODIFIERS=@im=fcitx QT_IM_MODULE=fcitx GTK_IM_MODULE=fcitx XCOMPOSEFILE=/nonexistent
export XKB_DEFAULT_LAYOUT=tr XCURSOR_THEME=nothing XCURSOR_SIZE=96

# How things look, and what libraries say.
export QT_QPA_PLATFORM=xcb QT_QPA_PLATFORMTHEME=gtk3 QT_STYLE_OVERRIDE=windows
export QT_QPA_FONTDIR=/nonexistent
export QT_SCALE_FACTOR=2 QT_FONT_DPI=192 QT_AUTO_SCREEN_SCALE_FACTOR=1 QT_ENABLE_HIGHDPI_SCALING=0
export QT_SCREEN_SCALE_FACTORS=2 QT_USE_PHYSICAL_DPI=1 QT_PLUGIN_PATH=/nonexistent
export QT_QPA_PLATFORM_PLUGIN_PATH=/nonexistent QT_LOGGING_RULES='*.debug=true' QT_DEBUG_PLUGINS=1
export QT_LOGGING_CONF=/nonexistent QT_MESSAGE_PATTERN='%{time} %{message}' QT_FATAL_WARNINGS=1
export QT_FORCE_STDERR_LOGGING=1 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1 QT_NO_GLIB=1
export QT_HASH_SEED=0 QT_NETWORK_PROXY=1 QT_DEFAULT_CLIENT_SOURCE=x QT_SSL_USE_TEMPORARY_KEYCHAIN=1
export GTK_THEME=HighContrast GTK_MODULES=gail GTK2_RC_FILES=/nonexistent GDK_SCALE=2
export GDK_DPI_SCALE=2
export GDK_BACKEND=wayland GIO_USE_VFS=local GSETTINGS_BACKEND=keyfile
export GSETTINGS_SCHEMA_DIR=/nonexistent
export G_DEBUG=fatal-warnings G_MESSAGES_DEBUG=all NO_AT_BRIDGE=0 NO_COLOR=1 TERM=dumb COLUMNS=20
export FONTCONFIG_FILE=/nonexistent FONTCONFIG_PATH=/nonexistent FONTCONFIG_SYSROOT=/nonexistent
export FC_DEBUG=1 FC_LANG=ja FREETYPE_PROPERTIES=cff:no-stem-darkening=0

# The network, and whom to trust in it.
export http_proxy=http://127.0.0.1:9 https_proxy=http://127.0.0.1:9 all_proxy=socks5://127.0.0.1:9
export HTTP_PROXY=http://127.0.0.1:9 HTTPS_PROXY=http://127.0.0.1:9 ALL_PROXY=socks5://127.0.0.1:9
export no_proxy=localhost NO_PROXY=localhost HOSTALIASES=/nonexistent LOCALDOMAIN=nowhere
export RES_OPTIONS=attempts:1 SSL_CERT_FILE=/nonexistent SSL_CERT_DIR=/nonexistent
export OPENSSL_CONF=/nonexistent OPENSSL_MODULES=/nonexistent SSLKEYLOGFILE=/nonexistent
export QUILLBAR_REST_ENDPOINTS=http://127.0.0.1:9 QUILLBAR_STREAM_ENDPOINTS=ws://127.0.0.1:9
export QUILLBAR_MARKETCAP_ENDPOINT=http://127.0.0.1:9 QUILLBAR_ICON_ENDPOINT=http://127.0.0.1:9
export QUILLBAR_CA_FILE=/nonexistent QUILLBAR_TEST_PROCESS=0 QUILLBAR_TEST_FOLDER=/nonexistent

# The tools that run the tests.
export GTEST_FILTER='-*' GTEST_REPEAT=3 GTEST_SHUFFLE=1 GTEST_BREAK_ON_FAILURE=1 GTEST_BRIEF=1
export GTEST_TOTAL_SHARDS=7 GTEST_SHARD_INDEX=3 TESTBRIDGE_TEST_ONLY=nothing
export GTEST_DEATH_TEST_STYLE=fast GTEST_FAIL_FAST=1 GTEST_OUTPUT=xml:/nonexistent/
export PYTHONPATH=/nonexistent PYTHONHOME=/nonexistent PYTHONSTARTUP=/nonexistent
export PYTHONWARNINGS=error
export PYTHONIOENCODING=ascii PYTHONOPTIMIZE=2 PYTHONHASHSEED=1 BASH_ENV=/nonexistent
export ENV=/nonexistent
export CDPATH=/usr POSIXLY_CORRECT=1 GREP_OPTIONS=-v GREP_COLORS=x LS_COLORS=x
export MALLOC_PERTURB_=165 MALLOC_ARENA_MAX=1 GLIBC_TUNABLES=glibc.malloc.perturb=90
export SOURCE_DATE_EPOCH=0 LD_LIBRARY_PATH=/nonexistent

umask 077
trap '' HUP INT QUIT PIPE TERM USR1 USR2 CHLD
ulimit -S -n 100
cd /
exec "$@"
