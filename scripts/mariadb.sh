#!/usr/bin/env bash
# A private MariaDB server for the tests: its own data folder, a loopback port, an
# ODBC data source in a private odbc.ini. Source this file; it exports
# ESCRIBANO_PRUEBA_DSN and ODBCINI, and `detener_mariadb` stops the server. The odbc.ini
# also names escribano_fallas, the throwaway server of the fault tests, on
# ESCRIBANO_PRUEBA_FALLAS_PUERTO.
set -euo pipefail

MARIADB_DIR="$(mktemp -d /tmp/escribano-mariadb.XXXXXX)"
MARIADB_PUERTO=$(( 33100 + RANDOM % 800 ))
MARIADB_SOCKET="$MARIADB_DIR/s.sock"
opciones_mariadb=(--lower-case-table-names=1 --character-set-server=utf8mb4
  --innodb-flush-log-at-trx-commit=0 --innodb-doublewrite=0 --skip-log-bin
  --innodb-buffer-pool-size=256M)

mariadb-install-db --user=root --datadir="$MARIADB_DIR/data" \
  --auth-root-authentication-method=normal --skip-test-db "${opciones_mariadb[@]}" \
  >"$MARIADB_DIR/install.log" 2>&1
mariadbd --no-defaults --user=root --datadir="$MARIADB_DIR/data" --socket="$MARIADB_SOCKET" \
  --port="$MARIADB_PUERTO" --bind-address=127.0.0.1 --pid-file="$MARIADB_DIR/pid" \
  "${opciones_mariadb[@]}" >"$MARIADB_DIR/server.log" 2>&1 &
MARIADB_PID=$!

detener_mariadb() {
  kill "$MARIADB_PID" 2>/dev/null || true
  wait "$MARIADB_PID" 2>/dev/null || true
  rm -rf "$MARIADB_DIR"
}

for _ in $(seq 1 100); do
  mariadb --socket="$MARIADB_SOCKET" -uroot -e 'SELECT 1' >/dev/null 2>&1 && break
  sleep 0.1
done
mariadb --socket="$MARIADB_SOCKET" -uroot <<SQL
CREATE DATABASE escribano_prueba CHARACTER SET utf8mb4;
CREATE USER 'escribano'@'%' IDENTIFIED BY 'escribano';
CREATE USER 'escribano'@'localhost' IDENTIFIED BY 'escribano';
GRANT ALL ON escribano_prueba.* TO 'escribano'@'%';
GRANT ALL ON escribano_prueba.* TO 'escribano'@'localhost';
SQL

driver=$(find /usr/lib -name libmaodbc.so 2>/dev/null | head -n 1)
cat >"$MARIADB_DIR/odbc.ini" <<INI
[escribano_prueba]
Driver=${driver:-MariaDB Unicode}
Server=127.0.0.1
Port=$MARIADB_PUERTO
Database=escribano_prueba
User=escribano
Password=escribano

[escribano_fallas]
Driver=${driver:-MariaDB Unicode}
Server=127.0.0.1
Port=$((MARIADB_PUERTO + 1000))
Database=escribano_fallas
User=escribano
Password=escribano
INI
export ODBCINI="$MARIADB_DIR/odbc.ini"
# A second server, started and killed by the tests themselves (scripts/mariadb_fallas.sh).
export ESCRIBANO_PRUEBA_FALLAS_PUERTO=$((MARIADB_PUERTO + 1000))
export ESCRIBANO_PRUEBA_DSN=escribano_prueba
# The server's port, for the benchmark's relay between the driver and the server.
export ESCRIBANO_PRUEBA_PUERTO=$MARIADB_PUERTO
set +e +u +o pipefail
