#include "tests/liquidation/calculo.h"

using namespace Qt::StringLiterals;

void CalculoDePrueba::SetUp() {
    ctx.ajustes = Ajustes(dir.filePath(u"ajustes.ini"_s));
    ctx.dialogos = DialogosDePrueba(registro);
    ctx.SeparadorDecimal = u'.';
    ctx.opciones.IVARIN = 21;
    ctx.opciones.IVARNI = 10.5;
    cargar(c);
}

void CalculoDePrueba::cargar(ClassLiquidacion &c) {
    c.CaratulaSubRegimen = u"IC01"_s;
    c.CaratulaDivisasFOB = c.CaratulaDivisasFlete = c.CaratulaDivisasSeguro = 1;
    c.FOBTotalITEM = 1000;
    c.FLETETotalITEM = 100;
    c.SEGUROTotalITEM = 10;
    c.ItemIdPais = u"400"_s;
    c.NcmDerechodeImportacionExtrazona = 20;
    c.NcmTasaEstadistica = 3;
    c.ncmExencionReduccionIVA = 2;
    c.ncmMineriaTasaLey = 1;
}

Respuesta CalculoDePrueba::pedir(const char *concepto, const Pedido &pedido) {
    Respuesta r;
    r.porcentaje = pedido.porcentaje;
    r.base = pedido.base;
    r.total = c.ObtenerValorConcepto(QString::fromLatin1(concepto), r.porcentaje, 0, r.base,
                                     pedido.porcentajeB, pedido.baseManual, pedido.sinCoeficiente);
    r.lqPorc = c.ObtenerLqPorc();
    return r;
}

void CalculoDePrueba::deBrasil() {
    responderAEC("R");
    c.ItemIdPais = u"203"_s;
    c.ncm_AEC = u"*"_s;
    c.ncmValor_AEC = 18;
    bases();
}

Pedido con(const char *porcentaje, double base, const char *porcentajeB) {
    return {QString::fromLatin1(porcentaje), base, QString::fromLatin1(porcentajeB), 0, false};
}

Pedido manual(const char *porcentaje, double base, const char *porcentajeB) {
    return {QString::fromLatin1(porcentaje), base, QString::fromLatin1(porcentajeB), base, true};
}

void esperar(const Respuesta &r, double total, double base, double lqPorc, const char *porcentaje) {
    EXPECT_NEAR(r.total, total, 1e-9);
    EXPECT_NEAR(r.base, base, 1e-9);
    EXPECT_NEAR(r.lqPorc, lqPorc, 1e-9);
    EXPECT_EQ(r.porcentaje.toStdString(), porcentaje);
}
