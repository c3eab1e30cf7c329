#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the demo need, only
# those that are missing, so a second run costs nothing. CUPS gives the spool
# its lp and lpstat, and the tests a private scheduler (cupsd, the pass-through
# filter) for a queue of their own. libxlsxwriter writes the spreadsheet
# listings; openpyxl reads them back in their test. The invoicing records
# (VERI*FACTU) draw their QR with libqrencode (zbarimg reads it back in the
# tests), validate their submissions with libxml2 (and xmllint), send them
# with libcurl, and the tests' agency service runs on Python with an openssl
# certificate.
set -euo pipefail

paquetes=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev libqt6sql6-sqlite libqt6sql6-psql
    postgresql libpq-dev libsqlite3-dev
    libgtest-dev libgmock-dev googletest libbenchmark-dev
    fonts-dejavu-core fonts-liberation2
    poppler-utils qpdf
    cups cups-client
    libxlsxwriter-dev python3-openpyxl
    libqrencode-dev zbar-tools libxml2-dev libxml2-utils libcurl4-openssl-dev openssl python3
)

faltan=()
for p in "${paquetes[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        faltan+=("$p")
    fi
done

if [ ${#faltan[@]} -eq 0 ]; then
    exit 0
fi

echo "Instalando paquetes que faltan: ${faltan[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
    sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${faltan[@]}"
