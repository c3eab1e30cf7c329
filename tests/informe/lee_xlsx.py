#!/usr/bin/python3
"""Reads back an .xlsx written by the listing sink, for its test: prints one
JSON object with the first sheet's cells (value as stored, value as last
calculated, number format), column widths and charts."""
import datetime
import json
import sys

import openpyxl


def valor(v):
    if isinstance(v, (datetime.datetime, datetime.date)):
        return v.isoformat()
    return v


def texto_titulo(titulo):
    if titulo is None or titulo.tx is None or titulo.tx.rich is None:
        return None
    return "".join(r.t for p in titulo.tx.rich.p for r in (p.r or []))


def referencia(datos):
    if datos is None:
        return None
    for ref in (getattr(datos, "numRef", None), getattr(datos, "strRef", None)):
        if ref is not None:
            return ref.f
    return None


def main(fichero):
    formulas = openpyxl.load_workbook(fichero)
    calculados = openpyxl.load_workbook(fichero, data_only=True)
    hoja = formulas.worksheets[0]
    hoja_calculada = calculados.worksheets[0]
    celdas = {}
    for fila in hoja.iter_rows():
        for celda in fila:
            if celda.value is None:
                continue
            celdas[celda.coordinate] = {
                "valor": valor(celda.value),
                "calculado": valor(hoja_calculada[celda.coordinate].value),
                "formato": celda.number_format,
                "negrita": bool(celda.font and celda.font.b),
            }
    anchos = {letra: d.width for letra, d in hoja.column_dimensions.items() if d.width}
    graficos = []
    for g in hoja._charts:
        serie = g.series[0] if g.series else None
        graficos.append({
            "tipo": g.tagname,
            "direccion": getattr(g, "barDir", None),
            "titulo": texto_titulo(g.title),
            "valores": referencia(serie.val) if serie else None,
            "categorias": referencia(serie.cat) if serie else None,
        })
    json.dump({
        "hoja": hoja.title,
        "titulo": formulas.properties.title,
        "celdas": celdas,
        "anchos": anchos,
        "graficos": graficos,
    }, sys.stdout, ensure_ascii=False)


if __name__ == "__main__":
    main(sys.argv[1])
