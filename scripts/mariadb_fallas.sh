#!/usr/bin/env bash
# A throwaway MariaDB server for the tests that stop the server under a run:
#   mariadb_fallas.sh iniciar CARPETA PUERTO   installs the data folder the first time,
#                                             starts the server and waits for it
#   mariadb_fallas.sh matar CARPETA            kills it (SIGKILL), as a power cut would
# The database escribano_fallas and the user escribano are made on first start; the DSN
# escribano_fallas of the tests' odbc.ini (scripts/mariadb.sh) points at PUERTO.
set -euo pipefail
accion="$1"
dir="$2"
# Durable as a production server: what was confirmed before the kill must be there after.
opciones=(--lower-case-table-names=1 --character-set-server=utf8mb4
  --innodb-flush-log-at-trx-commit=1 --skip-log-bin --innodb-buffer-pool-size=64M)
case "$accion" in
  iniciar)
    puerto="$3"
    nuevo=0
    if [ ! -d "$dir/data" ]; then
      mkdir -p "$dir"
      mariadb-install-db --user=root --datadir="$dir/data" --auth-root-authentication-method=normal \
        --skip-test-db "${opciones[@]}" >"$dir/install.log" 2>&1
      nuevo=1
    fi
    mariadbd --no-defaults --user=root --datadir="$dir/data" --socket="$dir/s.sock" \
      --port="$puerto" --bind-address=127.0.0.1 --pid-file="$dir/pid" "${opciones[@]}" \
      >>"$dir/server.log" 2>&1 &
    for _ in $(seq 1 200); do
      mariadb --socket="$dir/s.sock" -uroot -e 'SELECT 1' >/dev/null 2>&1 && break
      sleep 0.1
    done
    if [ "$nuevo" -eq 1 ]; then
      mariadb --socket="$dir/s.sock" -uroot <<SQL
CREATE DATABASE escribano_fallas CHARACTER SET utf8mb4;
CREATE USER 'escribano'@'%' IDENTIFIED BY 'escribano';
CREATE USER 'escribano'@'localhost' IDENTIFIED BY 'escribano';
GRANT ALL ON escribano_fallas.* TO 'escribano'@'%';
GRANT ALL ON escribano_fallas.* TO 'escribano'@'localhost';
SQL
    fi
    mariadb --socket="$dir/s.sock" -uroot -e 'SELECT 1' >/dev/null
    ;;
  matar)
    pid=$(cat "$dir/pid")
    kill -9 "$pid"
    while kill -0 "$pid" 2>/dev/null; do sleep 0.05; done
    ;;
  *)
    echo "Uso: $0 iniciar CARPETA PUERTO | matar CARPETA" >&2
    exit 1
    ;;
esac
