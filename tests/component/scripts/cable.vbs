' The cable, pin by pin, from a script.
Option Explicit
Dim cfg
Set cfg = CreateObject("Conmuta.clsCfgConmut")

cfg.PinIZQ = 3
cfg.PinDER = 2
cfg.PinesConectados = True
Equal "without a pair no pin is chosen", cfg.PinIZQ & "," & cfg.PinDER, "0,0"
Equal "without a pair nothing is wired", cfg.PinesConectados, False
Equal "without a pair nothing changes", cfg.Modificado, False

Choose 1, 3, 2
cfg.PinesConectados = True
Equal "a wire is made", cfg.PinesConectados, True
Equal "a wire is a change", cfg.Modificado, True
Choose 4, 3, 2
Equal "another pair has wires of its own", cfg.PinesConectados, False
Choose 1, 3, 2
Equal "the first pair kept its wire", cfg.PinesConectados, True
cfg.PinesConectados = False
Equal "a wire is cut", cfg.PinesConectados, False

Choose 2, 9, 9
cfg.PinDER = 15
Equal "a right pin beyond the left connector is ignored", cfg.PinDER, 9
Choose 3, 1, 15
Equal "a right pin within the left connector is kept", cfg.PinDER, 15
cfg.PinesConectados = True
Equal "a pin that the right connector lacks is not wired", cfg.PinesConectados, False

cfg.Iniciar
Equal "a reset keeps the pair", cfg.PuertoActivo, 3
Equal "a reset forgets the pins", cfg.PinIZQ & "," & cfg.PinDER, "0,0"
Choose 7, 1, 1
cfg.PinesConectados = True
Equal "a pair that is none wires nothing", cfg.PinesConectados, False
Equal "a pair that is none marks a change", cfg.Modificado, True

Sub Choose(pair, leftPin, rightPin)
    cfg.PuertoActivo = pair
    cfg.PinIZQ = leftPin
    cfg.PinDER = rightPin
End Sub
