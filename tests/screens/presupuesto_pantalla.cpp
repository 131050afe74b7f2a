#include "tests/screens/presupuesto_pantalla.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

void EnElPresupuesto::SetUp() {
    EnPantalla::SetUp();
    casaAntes_ = qgetenv("HOME");
    qputenv("HOME", (tienda->carpeta() + "/casa"_L1).toLocal8Bit());
    ASSERT_TRUE(QDir().mkpath(documentos()));
    ctx->SeparadorDecimal = u',';
    ctx->ConfigFilePath = tienda->carpeta() + "/Prueba.cfg"_L1;
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"PASE"_s, u"1000"_s);
    ctx->dialogos.abrirArchivo = [this](const QString &archivo) {
        abiertos << archivo;
        return seAbren;
    };
    for (const char *tabla : {"itempresu", "itemref", "liqcero", "conpresu", "referencias"})
        ejecutar("delete from "_L1 + QLatin1String(tabla));
    ejecutar(u"delete from coment"_s, u"SYSTABLAS"_s);
    for (const char *fila : {"'010','DERECHOS',100,'P'", "'415','IVA',50,'G'", "'900','ARANCEL',10,null"})
        ejecutar(
            u"insert into liqcero (interno,idconcepto,concepto,valor,pgc) values ('IC-2026-0001',%1)"_s.arg(
                QLatin1String(fila)));
    for (const char *concepto : {"HONORARIOS", "GASTOS OPERATIVOS", "GUIA ELECTRONICA", "FLETE INTERNO"})
        ejecutar(u"insert into conpresu (concepto) values ('%1')"_s.arg(QLatin1String(concepto)));
    for (const char *referencia : {"CONOCIMIENTO", "BUQUE", "ORDEN DE COMPRA"})
        ejecutar(u"insert into referencias (referencia) values ('%1')"_s.arg(QLatin1String(referencia)));
    ASSERT_TRUE(QDir().mkpath(ctx->ProgramFolder + "seccion"_L1));
    const QDir secciones(CarpetaDeFuentes() + "/seccion"_L1);
    const QStringList archivos = secciones.entryList({u"*.cpl"_s}, QDir::Files);
    for (const QString &archivo : archivos)
        QFile::copy(secciones.filePath(archivo), ctx->ProgramFolder + "seccion/"_L1 + archivo);
}

void EnElPresupuesto::TearDown() {
    qputenv("HOME", casaAntes_);
    EnPantalla::TearDown();
}

void EnElPresupuesto::mostrar(const std::function<void(FrmPresupuesto &)> &hacer) {
    conPantallaModal<FrmPresupuesto>(hacer);
    Pantalla<FrmPresupuesto>().Mostrar(u"IC-2026-0001"_s);
    CerrarPantalla<FrmPresupuesto>();
}

std::string EnElPresupuesto::ultimo() const {
    return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
}
