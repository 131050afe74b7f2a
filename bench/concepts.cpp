// How many concepts a second the calculator answers, on an import and on an export, with the texts that the
// recalculation hands over: "Vacio", a rate of the row, and a rate and a base fixed by hand.
//
//   bench_concepts [--vueltas 200000]      exits with 1 below a million a second
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>

#include "frame/context.h"
#include "header/automotive.h"
#include "liquidation/ClassLiquidacion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double minimo = 1e6;

const std::array<QString, 26> codigos{u"010"_s, u"011"_s, u"015"_s, u"016"_s, u"020"_s, u"032"_s, u"041"_s,
                                      u"059"_s, u"061"_s, u"062"_s, u"065"_s, u"415"_s, u"417"_s, u"422"_s,
                                      u"424"_s, u"500"_s, u"501"_s, u"520"_s, u"601"_s, u"611"_s, u"852"_s,
                                      u"854"_s, u"856"_s, u"866"_s, u"900"_s, u"FCV"_s};

struct Fila {
    QString porcentaje;
    double base;
};
const std::array<Fila, 3> filas{{{u"Vacio"_s, 0}, {u"10.5"_s, 0}, {u"12"_s, 512.34}}};

void cargar(ClassLiquidacion &c, const char *regimen) {
    c.CaratulaSubRegimen = QLatin1String(regimen);
    c.CaratulaDivisasFOB = 1.085;
    c.CaratulaDivisasFlete = c.CaratulaDivisasSeguro = 1;
    c.FOBTotalITEM = 12345.67;
    c.FLETETotalITEM = 321.09;
    c.SEGUROTotalITEM = 45.6;
    c.ItemIdPais = u"101"_s;
    c.NcmDerechodeImportacionExtrazona = 20;
    c.NcmTasaEstadistica = 3;
    c.NcmDerechodeExpo = 10;
    c.ncmReintegroFijo = 5;
    c.ncmExencionReduccionIVA = 2;
    c.NcmIndicadorMaximoArancel = 1;
    c.ncmCantidadDerechoEspecifico = 2;
    c.ItemCantidadDerechoEspecifico = 50;
    c.ObtenerBaseImponible();
    c.ObtenerBaseIVA();
}

/// Calls a second over `vueltas` calls of one code, and what they add up to, so that none can be left out.
double medir(ClassLiquidacion &c, const QString &codigo, int vueltas, double &suma) {
    QElapsedTimer reloj;
    reloj.start();
    for (int i = 0; i < vueltas; ++i) {
        const Fila &fila = filas[i % filas.size()];
        QString porcentaje = fila.porcentaje;
        double base = fila.base;
        suma += c.ObtenerValorConcepto(codigo, porcentaje, 0, base, u"10.5"_s, fila.base, fila.base != 0);
    }
    return vueltas * 1e9 / static_cast<double>(reloj.nsecsElapsed());
}

}  // namespace

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    int vueltas = 200000;
    const QStringList argumentos = QCoreApplication::arguments();
    for (int i = 1; i + 1 < argumentos.size(); i += 2)
        if (argumentos[i] == "--vueltas"_L1) vueltas = std::max(1, argumentos[i + 1].toInt());

    const QTemporaryDir dir;
    AppContext ctx;
    ctx.ajustes = Ajustes(dir.filePath(u"ajustes.ini"_s));
    ctx.opciones.IVARIN = 21;
    ctx.opciones.IVARNI = 10.5;
    const QString clave = u"BANCO"_s;
    GuardarAEC(ctx, clave, u"N"_s);

    double suma = 0;
    bool alcanza = true;
    std::printf("| item | slowest concept | its calls a second | calls a second |\n|---|---|---|---|\n");
    for (const char *regimen : {"IC01", "EC01"}) {
        ClassLiquidacion c(ctx, clave);
        cargar(c, regimen);
        double nanosegundos = 0;
        double peor = 0;
        QString elPeor;
        for (const QString &codigo : codigos) {
            medir(c, codigo, vueltas / 10, suma);
            const double porSegundo = medir(c, codigo, vueltas, suma);
            nanosegundos += 1e9 / porSegundo;
            if (elPeor.isEmpty() || porSegundo < peor) {
                peor = porSegundo;
                elPeor = codigo;
            }
        }
        const double todas = static_cast<double>(codigos.size()) * 1e9 / nanosegundos;
        std::printf("| %s | %s | %.0f | %.0f |\n", regimen, qPrintable(elPeor), peor, todas);
        alcanza = alcanza && todas > minimo;
    }
    std::printf("(%g)\n", suma);
    if (!alcanza) std::fprintf(stderr, "Below %.0f calls a second.\n", minimo);
    return alcanza ? 0 : 1;
}
