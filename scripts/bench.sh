#!/usr/bin/env bash
# The benchmarks: the all-customers invoicing run on a generated company
# (2,000 customers, pending notes of 5 lines) on SQLite at three sizes, then
# at 2,000 and 20,000 groups to show memory does not grow with them, and on a
# PostgreSQL server with its normal durability settings; then the issue of the
# demo invoices through the report engine and the text layout.
set -euo pipefail
build=${1:-build}
programa="$build/bench/vk_bench_facturacion"
tmp=$(mktemp -d /tmp/vkfactuven-bench.XXXXXX)
pg="$tmp/pg"
como=()
if [ "$(id -u)" -eq 0 ]; then
    chmod 755 "$tmp"
    como=(runuser -u postgres --)
fi
limpia() {
    "$(dirname "$0")/pg-prueba.sh" stop "$pg" >/dev/null 2>&1 || true
    rm -rf "$tmp"
}
trap limpia EXIT

# Each run prints invoices/s, its ratio to this machine's limit for the same
# transaction shape (measured in the same run), statements per invoice and
# peak memory.
for n in 1000 10000 100000; do
    echo "== SQLite, $n albaranes"
    "$programa" --db "$tmp/sqlite$n" --albaranes "$n" --clientes $((n < 2000 ? n : 2000))
done
echo "== SQLite, 10000 albaranes sin registros de facturación (lo que cuestan los registros)"
"$programa" --db "$tmp/sqlite10000s" --albaranes 10000 --clientes 2000 --sin-registros
echo "== SQLite, una factura por cliente: 2.000 y 20.000 grupos de 20.000 albaranes (la memoria no crece con los grupos)"
"$programa" --db "$tmp/sqlite2g" --albaranes 20000 --clientes 2000 --grupo-por-cliente
"$programa" --db "$tmp/sqlite20g" --albaranes 20000 --clientes 20000 --grupo-por-cliente

"$(dirname "$0")/pg-prueba.sh" start "$pg" durable >/dev/null
psql_bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)/psql
for n in 1000 10000 100000; do
    echo "== PostgreSQL, $n albaranes"
    "${como[@]}" "$psql_bin" -h "$pg" -U postgres -qc "CREATE DATABASE bench$n" postgres
    "$programa" --db "postgresql://postgres@/bench$n?host=$pg" --albaranes "$n" \
        --clientes $((n < 2000 ? n : 2000))
done

echo "== PostgreSQL, 10000 albaranes sin registros de facturación"
"${como[@]}" "$psql_bin" -h "$pg" -U postgres -qc "CREATE DATABASE bench10000s" postgres
"$programa" --db "postgresql://postgres@/bench10000s?host=$pg" --albaranes 10000 --clientes 2000 \
    --sin-registros

echo "== Emisión de las facturas de la empresa de demostración (informe en PDF y texto de impresora matricial)"
"$build/bench/vk_bench_emision" --rondas 20
