#!/usr/bin/env bash
# Throwaway PostgreSQL cluster for the tests: Unix socket only, in a folder of
# its own, with durability switched off because nothing in it outlives the run.
#   pg-prueba.sh start DIR [durable]   initdb (first time) and start; "durable"
#                                      keeps the server's own sync settings (benchmarks)
#   pg-prueba.sh stop DIR              stop and remove the folder
set -euo pipefail

accion=${1:?start o stop}
dir=${2:?carpeta}
modo=${3:-}
bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
if [ -z "$bin" ]; then
    echo "No se encuentra PostgreSQL (paquete postgresql)." >&2
    exit 1
fi

# initdb refuses to run as root: the cluster then belongs to the postgres user.
como=()
if [ "$(id -u)" -eq 0 ]; then
    como=(runuser -u postgres --)
fi

case "$accion" in
start)
    mkdir -p "$dir"
    if [ "$(id -u)" -eq 0 ]; then chown postgres: "$dir"; fi
    # A server left running by an earlier run is reused; a dead one's pid
    # file does not stop a new start.
    if "${como[@]}" "$bin/pg_ctl" -D "$dir/datos" status >/dev/null 2>&1; then
        echo "PostgreSQL de pruebas en $dir (ya en marcha)"
        exit 0
    fi
    if [ ! -f "$dir/datos/PG_VERSION" ]; then
        "${como[@]}" "$bin/initdb" -D "$dir/datos" -U postgres -A trust -E UTF8 \
            --locale=C.UTF-8 >"$dir/initdb.log" 2>&1 || { cat "$dir/initdb.log" >&2; exit 1; }
    fi
    opciones="-k $dir -c listen_addresses='' -c max_connections=200"
    if [ "$modo" != durable ]; then
        opciones="$opciones -c fsync=off -c synchronous_commit=off -c full_page_writes=off"
    fi
    "${como[@]}" "$bin/pg_ctl" -D "$dir/datos" -l "$dir/servidor.log" -w -t 60 \
        -o "$opciones" start >/dev/null \
        || { cat "$dir/servidor.log" >&2; exit 1; }
    echo "PostgreSQL de pruebas en $dir"
    ;;
stop)
    if [ -f "$dir/datos/postmaster.pid" ]; then
        "${como[@]}" "$bin/pg_ctl" -D "$dir/datos" -m fast stop >/dev/null 2>&1 || true
    fi
    rm -rf "$dir"
    ;;
*)
    echo "Uso: $0 start|stop DIR" >&2
    exit 2
    ;;
esac
