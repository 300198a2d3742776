#!/usr/bin/env bash
# Installs with apt-get whatever the build, the demo and the tests need and is missing.
set -euo pipefail

paquetes=(
  cmake ninja-build pkg-config g++
  qt6-base-dev libqt6sql6-sqlite libqt6sql6-mysql libqt6sql6-odbc
  libgtest-dev libgmock-dev libsqlite3-dev
  unixodbc unixodbc-dev odbc-mariadb tdsodbc
  libssl-dev openssl
  mariadb-server mariadb-client
  xvfb xauth fonts-dejavu-core poppler-utils libxml2-utils valgrind
  qt6-translations-l10n
)

faltan=()
for p in "${paquetes[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || faltan+=("$p")
done
[ ${#faltan[@]} -eq 0 ] && exit 0

echo "Instalando: ${faltan[*]}"
sudo_=""
[ "$(id -u)" -ne 0 ] && sudo_="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo_ apt-get update -qq
# The server package must not start a system-wide service: the tests run their own.
printf '#!/bin/sh\nexit 101\n' | $sudo_ tee /usr/sbin/policy-rc.d >/dev/null
$sudo_ chmod +x /usr/sbin/policy-rc.d
$sudo_ apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
