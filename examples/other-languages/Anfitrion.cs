// A host in C#, early bound, for .NET Framework: tlbimp conmuta.dll /out:Interop.Conmuta.dll, then
// csc /platform:x86 /r:Interop.Conmuta.dll Anfitrion.cs (x64 with the 64-bit component).
// Not run here: the language does not run where this component is tested.
using System;
using System.IO;
using System.Linq;
using System.Runtime.InteropServices;
using System.Text;
using Conmuta;

static class Anfitrion
{
    static int llamadas, errores, otras;

    [STAThread]
    static void Main(string[] args)
    {
        var cfg = new clsCfgConmut();
        cfg.ConfiguracionCargada += () => Console.WriteLine("Configuracion cargada.");
        cfg.Cambios += () => Console.WriteLine("La configuracion cambio.");
        try
        {
            cfg.Abrir(args[0]);
        }
        catch (COMException e)
        {
            Console.WriteLine("{0:X8} {1}: {2}", e.ErrorCode, e.Source, e.Message);
            return;
        }
        var traductor = new clsTradEST { Conmutador = cfg };
        _clsLlamadaTRD llamada = traductor.InfoLlamada;

        foreach (string linea in File.ReadLines(args[1], Encoding.Default))
            Traducir(traductor, llamada, new string(linea.Where(c => c >= ' ' && c != '\x7F').ToArray()));
        if (cfg.get_Caso() == emCasos.emCasoNortelNorstar0x32SMDR6) Traducir(traductor, llamada, "--------");
        for (short lugar = 1; lugar <= 100; lugar++) traductor.QuitaLlamadaLista(lugar);
        Console.WriteLine("{0} llamadas, {1} errores, {2} sin llamada", llamadas, errores, otras);

        // By reference: C# has no such properties, so the two accessors stand as methods. What the
        // component stored comes back in the variable.
        emCasos caso = emCasos.emCasoRestaFechasDuracion;
        cfg.set_Caso(ref caso);
        var tipo = (emTiposLlamadas)7;
        llamada.set_TipoLlamada(ref tipo); // now emLlamadaIndefinida
    }

    static void Traducir(clsTradEST traductor, _clsLlamadaTRD llamada, string linea)
    {
        try
        {
            traductor.Llamada = linea;
        }
        catch (Exception) // OverflowException and ArgumentException, too
        {
            errores++; // half a record is left: its EsValido says nothing
            return;
        }
        if (!llamada.EsValido) { otras++; return; }
        llamadas++;
        const emParamTipoFecha D = emParamTipoFecha.emParamDuracion, F = emParamTipoFecha.emParamFecha;
        bool quedaFecha = llamada.get_Anio(D) != 0 || llamada.get_Mes(D) != 0 || llamada.get_Dia(D) != 0;
        string duracion = quedaFecha || llamada.Duracion < 0 ? "?" : llamada.Duracion.ToString();
        Console.WriteLine("{0:d};{1}:{2:00};{3};{4};{5};{6}", llamada.Fecha, llamada.get_Horas(F),
            llamada.get_Minutos(F), duracion, llamada.Emisor, llamada.Receptor, llamada.Telefono);
    }
}
