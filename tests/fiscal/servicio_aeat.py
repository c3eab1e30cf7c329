#!/usr/bin/env python3
"""The agency's sending service as the tests need it: HTTPS on 127.0.0.1 with a
self-signed certificate made here, a client certificate required, each
submission checked with xmllint against SuministroLR.xsd and answered as the
file CARPETA/modo says:

  correcto             every record Correcto
  parcial NUM [NUM..]  the records of those series/numbers Incorrecto, the rest Correcto
  fallo                a SOAP fault (env:Client)
  lento                no answer before the client gives up

Every submission received is kept as CARPETA/recibido-NNNN.xml. Once
listening it prints "PUERTO n" on standard output.

Usage: servicio_aeat.py --carpeta DIR --esquemas DIR
"""
import argparse
import http.server
import os
import re
import ssl
import subprocess
import sys
import threading
import time
import xml.etree.ElementTree as ET
from xml.sax.saxutils import escape

NS_SF = ("https://www2.agenciatributaria.gob.es/static_files/common/internet/dep/"
         "aplicaciones/es/aeat/tike/cont/ws/SuministroInformacion.xsd")
NS_LR = ("https://www2.agenciatributaria.gob.es/static_files/common/internet/dep/"
         "aplicaciones/es/aeat/tike/cont/ws/SuministroLR.xsd")
NS_R = ("https://www2.agenciatributaria.gob.es/static_files/common/internet/dep/"
        "aplicaciones/es/aeat/tike/cont/ws/RespuestaSuministro.xsd")
SOAP = "http://schemas.xmlsoap.org/soap/envelope/"

CODIGO_RECHAZO = "1100"
MOTIVO_RECHAZO = "Valor o tipo incorrecto del campo: NIF del destinatario"
ESPERA = 60

cerrojo = threading.Lock()
cuenta = [0]


def certificados(carpeta):
    for nombre in ("servidor", "cliente"):
        subprocess.run(
            ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2",
             "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1",
             "-keyout", os.path.join(carpeta, nombre + ".key"),
             "-out", os.path.join(carpeta, nombre + ".pem")],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def sobre(cuerpo):
    return ('<?xml version="1.0" encoding="UTF-8"?>'
            f'<env:Envelope xmlns:env="{SOAP}"><env:Header/><env:Body>{cuerpo}'
            '</env:Body></env:Envelope>').encode("utf-8")


def fallo(codigo, texto):
    return sobre(f"<env:Fault><faultcode>{codigo}</faultcode>"
                 f"<faultstring>{escape(texto)}</faultstring></env:Fault>")


def respuesta(documento, modo, numero):
    raiz = ET.fromstring(documento)
    rechazar = set(modo[1:]) if modo[0] == "parcial" else set()
    lineas, estados = [], []
    for rf in raiz.findall(f"{{{NS_LR}}}RegistroFactura"):
        alta = rf.find(f"{{{NS_SF}}}RegistroAlta")
        reg = alta if alta is not None else rf.find(f"{{{NS_SF}}}RegistroAnulacion")
        sufijo = "" if alta is not None else "Anulada"
        ident = reg.find(f"{{{NS_SF}}}IDFactura")
        nif = ident.findtext(f"{{{NS_SF}}}IDEmisorFactura{sufijo}")
        num = ident.findtext(f"{{{NS_SF}}}NumSerieFactura{sufijo}")
        fecha = ident.findtext(f"{{{NS_SF}}}FechaExpedicionFactura{sufijo}")
        estado = "Incorrecto" if num in rechazar else "Correcto"
        estados.append(estado)
        error = ""
        if estado == "Incorrecto":
            error = (f"<tikR:CodigoErrorRegistro>{CODIGO_RECHAZO}</tikR:CodigoErrorRegistro>"
                     f"<tikR:DescripcionErrorRegistro>{escape(MOTIVO_RECHAZO)}"
                     "</tikR:DescripcionErrorRegistro>")
        lineas.append(
            "<tikR:RespuestaLinea><tikR:IDFactura>"
            f"<tik:IDEmisorFactura>{escape(nif)}</tik:IDEmisorFactura>"
            f"<tik:NumSerieFactura>{escape(num)}</tik:NumSerieFactura>"
            f"<tik:FechaExpedicionFactura>{escape(fecha)}</tik:FechaExpedicionFactura>"
            "</tikR:IDFactura><tikR:Operacion><tik:TipoOperacion>"
            f"{'Alta' if alta is not None else 'Anulacion'}</tik:TipoOperacion>"
            f"</tikR:Operacion><tikR:EstadoRegistro>{estado}</tikR:EstadoRegistro>{error}"
            "</tikR:RespuestaLinea>")
    if all(e == "Correcto" for e in estados):
        global_ = "Correcto"
    elif all(e == "Incorrecto" for e in estados):
        global_ = "Incorrecto"
    else:
        global_ = "ParcialmenteCorrecto"
    csv = "" if global_ == "Incorrecto" else f"<tikR:CSV>CSVPRUEBA{numero:07d}</tikR:CSV>"
    return sobre(
        f'<tikR:RespuestaRegFactuSistemaFacturacion xmlns:tikR="{NS_R}" xmlns:tik="{NS_SF}">'
        f"{csv}<tikR:DatosPresentacion><tik:NIFPresentador>B00000000</tik:NIFPresentador>"
        "<tik:TimestampPresentacion>2026-01-01T10:00:00+01:00</tik:TimestampPresentacion>"
        f"</tikR:DatosPresentacion><tikR:TiempoEsperaEnvio>{ESPERA}</tikR:TiempoEsperaEnvio>"
        f"<tikR:EstadoEnvio>{global_}</tikR:EstadoEnvio>{''.join(lineas)}"
        "</tikR:RespuestaRegFactuSistemaFacturacion>")


class Servicio(http.server.BaseHTTPRequestHandler):
    carpeta = ""
    esquemas = ""

    def log_message(self, *args):
        pass

    def responde(self, estado, cuerpo):
        self.send_response(estado)
        self.send_header("Content-Type", "text/xml; charset=utf-8")
        self.send_header("Content-Length", str(len(cuerpo)))
        self.end_headers()
        self.wfile.write(cuerpo)

    def do_POST(self):
        longitud = int(self.headers.get("Content-Length", "0"))
        peticion = self.rfile.read(longitud).decode("utf-8")
        with open(os.path.join(self.carpeta, "modo"), encoding="utf-8") as f:
            modo = f.read().split() or ["correcto"]
        with cerrojo:
            cuenta[0] += 1
            numero = cuenta[0]
        inicio = re.search(r"<(\w+:)?Body[^>]*>", peticion)
        fin = re.search(r"</(\w+:)?Body>", peticion)
        if not inicio or not fin:
            self.responde(500, fallo("env:Client", "Sin cuerpo SOAP"))
            return
        documento = peticion[inicio.end():fin.start()]
        fichero = os.path.join(self.carpeta, f"recibido-{numero:04d}.xml")
        with open(fichero, "w", encoding="utf-8") as f:
            f.write(documento)
        valida = subprocess.run(
            ["xmllint", "--noout", "--nonet", "--schema",
             os.path.join(self.esquemas, "SuministroLR.xsd"), fichero],
            capture_output=True, text=True)
        if valida.returncode != 0:
            self.responde(500, fallo("env:Client", "Codigo[4102].El XML no cumple el esquema. "
                                     + valida.stderr.strip()))
            return
        if modo[0] == "fallo":
            self.responde(500, fallo("env:Client", "Codigo[4104].El NIF del titular en la "
                                     "cabecera no está identificado."))
            return
        if modo[0] == "lento":
            # Longer than any client timeout of the tests: the client gives up.
            time.sleep(30)
            return
        self.responde(200, respuesta(documento, modo, numero))


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--carpeta", required=True)
    p.add_argument("--esquemas", required=True)
    a = p.parse_args()
    certificados(a.carpeta)
    Servicio.carpeta = a.carpeta
    Servicio.esquemas = a.esquemas
    servidor = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Servicio)
    servidor.daemon_threads = True
    contexto = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    contexto.load_cert_chain(os.path.join(a.carpeta, "servidor.pem"),
                             os.path.join(a.carpeta, "servidor.key"))
    contexto.verify_mode = ssl.CERT_REQUIRED
    contexto.load_verify_locations(os.path.join(a.carpeta, "cliente.pem"))
    servidor.socket = contexto.wrap_socket(servidor.socket, server_side=True)
    print(f"PUERTO {servidor.server_address[1]}", flush=True)
    servidor.serve_forever()


if __name__ == "__main__":
    sys.exit(main())
