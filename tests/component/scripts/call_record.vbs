' A call record as VBScript sees it.
Option Explicit
Dim rec, other, x
Set rec = CreateObject("Conmuta.clsLlamadaTRD")

Equal "a new one has the first date", CDbl(rec.Fecha), -657434
Equal "a date is a date", TypeName(rec.Fecha), "Date"
Equal "a new one is at midnight", CDbl(rec.Hora), 0
Equal "a new one lasts no time", rec.Duracion, 0
Equal "a new one is undefined", rec.TipoLlamada, 1
Equal "a new one is not valid", rec.EsValido, False

rec.Mes(1) = 13
Equal "a month that is none is this one", rec.Mes(1), Month(Now)
rec.Mes(2) = 13
Equal "of the duration it is none", rec.Mes(2), 0
rec.Anio(1) = 0
Equal "a year that is none is this one", rec.Anio(1), Year(Now)
rec.Anio(1) = -5
Equal "a negative year is this one", rec.Anio(1), Year(Now)

rec.Minutos(3) = 5
rec.Segundos(3) = 30
Equal "ring adds up", rec.Ring, 330
rec.Ring = -1
Equal "a negative ring is none", rec.Ring, 0
x = "3"
rec.Minutos(x) = x
Equal "indices may come in variables", rec.Ring, 180
Equal "the ring is not read back by parts", rec.Minutos(3), 0

rec.Horas(1) = 0
rec.Minutos(1) = 30
Equal "the hour after midnight is midnight", CDbl(rec.Hora), 0
rec.Horas(1) = 11
x = rec.AjustarHoraVespertina12Hrs24Hrs(1)
Equal "an afternoon hour gains twelve", rec.Horas(1), 23
Equal "adjusting answers nothing", IsEmpty(x), True
rec.Horas(1) = 12
rec.AjustarHoraVespertina12Hrs24Hrs 1
Equal "noon stays", rec.Horas(1), 12

x = 7
rec.TipoLlamada = x
Equal "a type that is none is undefined", rec.TipoLlamada, 1
rec.TipoLlamada = -1
Equal "a negative type is undefined", rec.TipoLlamada, 1
rec.TipoLlamada = 6
Equal "the last type is kept", rec.TipoLlamada, 6
rec.Atributos = 4
Equal "an attribute that is none is none", rec.Atributos, 0
rec.Atributos = 3
Equal "the last attribute is kept", rec.Atributos, 3

rec.Telefono = String(40, "7")
Equal "a number is cut to 30 digits", rec.Telefono, String(30, "7")
rec.Emisor = "A" & Chr(0) & Chr(&HF1) & " "
Equal "a text drops its NULs and keeps its blanks", rec.Emisor, "A" & Chr(&HF1) & " "

SetMoment 1, 2026, 11, 21, 10, 5, 30
SetMoment 2, 2026, 11, 21, 9, 58, 10
rec.AjustaDuracionPorRestaFechas
Equal "the duration is a difference", rec.Horas(2) & ":" & rec.Minutos(2) & ":" & rec.Segundos(2), "0:7:20"
Equal "the duration in seconds", rec.Duracion, 440
Equal "the date is a day", CDbl(rec.Fecha), 46347
SetMoment 1, 2026, 11, 21, 10, 0, 30
SetMoment 2, 2026, 11, 21, 9, 58, 10
rec.AjustaDuracionPorRestaFechas
Equal "a whole hour prevents the difference", rec.Anio(2), 2026

rec.Inicializa
rec.TipoLlamada = 3
rec.Emisor = "205"
rec.Receptor = "T01"
Equal "without a date it is not valid", rec.EsValido, False
SetMoment 1, 2026, 11, 21, 0, 0, 0
Equal "with type, parties and date it is valid", rec.EsValido, True
Set other = CreateObject("Conmuta.clsLlamadaTRD")
other.CopiaLlamada rec
rec.Inicializa
Equal "a copy stands for itself", other.EsValido, True
Equal "a copy has its texts", other.Emisor, "205"
Equal "what was cleared is not valid", rec.EsValido, False

Sub SetMoment(group, y, m, d, h, n, s)
    rec.Anio(group) = y
    rec.Mes(group) = m
    rec.Dia(group) = d
    rec.Horas(group) = h
    rec.Minutos(group) = n
    rec.Segundos(group) = s
End Sub
