"""A host in Python with pywin32, late bound: python anfitrion.py CONFIGURATION.cfg CAPTURE.txt

Not run here: the language does not run where this component is tested.
"""
import re
import sys

import pythoncom
import win32com.client


class Eventos:
    def OnConfiguracionCargada(self):
        print("Configuracion cargada.")

    def OnCambios(self):
        print("La configuracion cambio.")


cfg = win32com.client.DispatchWithEvents("Conmuta.clsCfgConmut", Eventos)
try:
    cfg.Abrir(sys.argv[1])
except pythoncom.com_error as error:
    _, _, detalle, _ = error.args
    sys.exit(f"{detalle[5] & 0xFFFFFFFF:08X} {detalle[1]}: {detalle[2]}")
traductor = win32com.client.dynamic.Dispatch("Conmuta.clsTradEST")
traductor.Conmutador = cfg
llamada = traductor.InfoLlamada
llamadas = errores = otras = 0


def traducir(linea):
    global llamadas, errores, otras
    try:
        traductor.Llamada = linea
    except pythoncom.com_error:
        errores += 1  # half a record is left: its EsValido says nothing
        return
    if not llamada.EsValido:
        otras += 1
        return
    llamadas += 1
    duracion = llamada.Duracion
    if llamada.Anio(2) or llamada.Mes(2) or llamada.Dia(2) or duracion < 0:
        duracion = "?"
    fecha = f"{llamada.Anio(1)}-{llamada.Mes(1):02}-{llamada.Dia(1):02}"
    hora = f"{llamada.Horas(1):02}:{llamada.Minutos(1):02}:{llamada.Segundos(1):02}"
    print(fecha, hora, duracion, llamada.Emisor, llamada.Receptor, llamada.Telefono, sep=";")


with open(sys.argv[2], encoding="cp1252", errors="replace", newline="\n") as captura:
    for linea in captura:
        traducir(re.sub(r"[\x00-\x1F\x7F]", "", linea))
if cfg.Caso == 4:
    traducir("--------")
for lugar in range(1, 101):
    traductor.QuitaLlamadaLista(lugar)
print(f"{llamadas} llamadas, {errores} errores, {otras} sin llamada")

# By reference in the type library; a late-bound host just assigns. What was stored is read back.
cfg.Caso = 5
llamada.TipoLlamada = 7
print(cfg.Caso, llamada.TipoLlamada)  # 5 1: 7 is no type
