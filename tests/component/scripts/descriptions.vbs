' Descriptions with their accents, character by character.
Option Explicit
Dim cfg, i, empties
Set cfg = CreateObject("Conmuta.clsCfgConmut")

Equal "day of the date, with its blank", cfg.ObtDescDATO(2), "D" & Chr(&HED) & "a de la fecha "
Equal "year of the date", cfg.ObtDescDATO(4), "A" & Chr(&HF1) & "o de la fecha"
Equal "an extension with an accent", cfg.ObtDescDATO(31), "Extensi" & Chr(&HF3) & "n entrante"
Equal "an extension without one", cfg.ObtDescDATO(34), "Extension No. 1 de inter - extension"
Equal "an incoming number", cfg.ObtDescDATO(18), "Numero telef" & Chr(&HF3) & "nico entrante"
Equal "the last item", cfg.ObtDescDATO(53), "Troncal No. 2 de fin de transferida inter - troncal"
Equal "before the first item", cfg.ObtDescDATO(1), "No parametro"
Equal "behind the last item", cfg.ObtDescDATO(54), "No parametro"
Equal "a negative item", cfg.ObtDescDATO(-1), "No parametro"
Equal "an identifier", cfg.ObtDescCTE(5), "Identificador de entrante (AND)"
Equal "the morning marker of the duration", cfg.ObtDescCTE(3), _
    "Identificador de horario matutino de la duraci" & Chr(&HF3) & "n"
Equal "behind the last constant", cfg.ObtDescCTE(24), "No parametro"

For i = 2 To 53
    If cfg.ObtDescDATO(i) = "No parametro" Then empties = empties & " " & i
Next
Equal "every item is described", empties, Empty
For i = 2 To 23
    If cfg.ObtDescCTE(i) = "No parametro" Then empties = empties & " " & i
Next
Equal "every constant is described", empties, Empty
Equal "a case with an accent", cfg.ObtNombreCaso(5), _
    "Resta de fechas para calcular la duraci" & Chr(&HF3) & "n"
