#!/usr/bin/env bash
# What belongs to one operating system lives in src/shell/Plataforma.cpp, with every
# branch written (the ODBC headers of src/shell/Odbc.cpp need <windows.h> there too).
# The benchmark's relay (bench/Relevo.cpp) stands between the ODBC driver and the private
# MariaDB server of scripts/mariadb.sh, which only POSIX systems start: it is POSIX alone.
# This finds POSIX- or Windows-only headers, calls and compiler extensions anywhere else.
set -uo pipefail
raiz="${1:-$(cd "$(dirname "$0")/../.." && pwd)}"
patron='#include *<(unistd\.h|windows\.h|io\.h|fcntl\.h|signal\.h|csignal|sys/[a-z_]+\.h|pwd\.h|dlfcn\.h)>|\b(_Exit|isatty|_isatty|getpid|kill|fork|popen|__int128|__builtin_[a-z_]+)\s*\('
hallados=$(grep -rnE "$patron" "$raiz/src" "$raiz/bench" --include='*.cpp' --include='*.h' |
  grep -v "^$raiz/src/shell/Plataforma.cpp:" | grep -v "^$raiz/bench/Relevo.cpp:" |
  grep -vE "^$raiz/src/shell/Odbc.cpp:[0-9]+:#include <windows.h>")
if [ -n "$hallados" ]; then
  echo "Código de un solo sistema fuera de src/shell/Plataforma.cpp:"
  echo "$hallados"
  exit 1
fi
echo "Lo propio de cada sistema está en src/shell/Plataforma.cpp."
