// The writing: validated, beside, and put in place at the end.

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include "assembly/run.h"
#include "liquidation/review.h"
#include "tests/transfer/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class EscrituraDeDeclaracion : public OperacionParaEnviar {
 protected:
    Declaracion leer() { return LeerDeclaracion(*ctx, u"A1"_s); }
    /// An earlier document.
    QString anterior() const {
        const QString ruta = carpeta(u"A1.xml"_s);
        QFile f(ruta);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("anterior");
        return ruta;
    }
};
EN_AMBOS_STORES(EscrituraDeDeclaracion);

TEST_P(EscrituraDeDeclaracion, TheFileHoldsTheDocumentAndTheSentenceTellsWhereAndHowMuch) {
    const QString ruta = carpeta(u"A1.xml"_s);
    const DocumentoEscrito e = EscribirTransferencia(leer(), ruta);
    EXPECT_TRUE(e.hecho);
    EXPECT_EQ(BytesDe(ruta), documento());
    EXPECT_EQ(e.bytes, documento().size());
    EXPECT_EQ(e.archivo, ruta);
    EXPECT_EQ(
        e.aviso,
        u"Se escribió la declaración en %1 (%2 bytes)."_s.arg(QDir::toNativeSeparators(ruta)).arg(e.bytes));
}

TEST_P(EscrituraDeDeclaracion, AnEarlierFileIsReplacedAndNothingIsLeftBeside) {
    const QString ruta = anterior();
    const QStringList antes = QDir(tienda->carpeta()).entryList(QDir::Files);
    EXPECT_TRUE(EscribirTransferencia(leer(), ruta).hecho);
    EXPECT_EQ(BytesDe(ruta), documento());
    EXPECT_EQ(QDir(tienda->carpeta()).entryList(QDir::Files), antes);
}

TEST_P(EscrituraDeDeclaracion, ADocumentThatBreaksItsFormLeavesTheEarlierFileWhole) {
    const QString ruta = anterior();
    ejecutar(u"update item set id = 1 where interno = 'A1' and id = 2"_s);
    const DocumentoEscrito e = EscribirTransferencia(leer(), ruta);
    EXPECT_FALSE(e.hecho);
    EXPECT_EQ(BytesDe(ruta), "anterior");
    EXPECT_TRUE(e.aviso.startsWith(
        u"No se escribió el documento, porque no cumple su forma: un número se repite o falta (línea "_s))
        << e.aviso.toStdString();
    EXPECT_TRUE(e.aviso.endsWith(u"; corrija el dato y vuelva a transferir."_s));
}

TEST_P(EscrituraDeDeclaracion, AFolderInThePlaceOfTheFileIsRefusedAndStays) {
    const QString ruta = carpeta(u"A1.xml"_s);
    ASSERT_TRUE(QDir().mkpath(ruta));
    const DocumentoEscrito e = EscribirTransferencia(leer(), ruta);
    EXPECT_FALSE(e.hecho);
    EXPECT_TRUE(QFileInfo(ruta).isDir());
    EXPECT_EQ(e.aviso, u"No se escribió el documento: %1 es una carpeta, elija un archivo."_s.arg(
                           QDir::toNativeSeparators(ruta)));
}

TEST_P(EscrituraDeDeclaracion, AFolderThatIsNotThereIsTold) {
    const QString ruta = carpeta(u"no/hay/A1.xml"_s);
    const DocumentoEscrito e = EscribirTransferencia(leer(), ruta);
    EXPECT_FALSE(e.hecho);
    EXPECT_EQ(e.aviso,
              u"No se escribió el documento: no se puede escribir en %1, revise que la carpeta exista, los "
              "permisos y el espacio."_s.arg(QDir::toNativeSeparators(ruta)));
}

TEST_P(EscrituraDeDeclaracion, AFolderThatTakesNoNewFileLeavesTheEarlierOneWhole) {
    const QString cerrada = carpeta(u"cerrada"_s);
    ASSERT_TRUE(QDir().mkpath(cerrada));
    const QString ruta = cerrada + u"/A1.xml"_s;
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("anterior");
    f.close();
    ASSERT_TRUE(QFile::setPermissions(cerrada, QFile::ReadOwner | QFile::ExeOwner));
    // Whoever may write everywhere meets a folder of the system that takes no file from anybody.
    const bool todoPoderoso = QFile(cerrada + u"/prueba"_s).open(QIODevice::WriteOnly);
    const DocumentoEscrito e = EscribirTransferencia(leer(), todoPoderoso ? u"/proc/A1.xml"_s : ruta);
    EXPECT_FALSE(e.hecho);
    EXPECT_TRUE(e.aviso.contains(u"no se puede escribir en"_s)) << e.aviso.toStdString();
    EXPECT_EQ(BytesDe(ruta), "anterior");
    QFile::setPermissions(cerrada, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST(NombreDeTransferencia, AKeyBecomesANameThatEverySystemTakes) {
    const std::pair<const char16_t *, const char16_t *> casos[] = {
        {u"IC-2026-0001", u"IC-2026-0001.xml"},
        {u"Ñandú/1", u"Ñandú_1.xml"},
        {u"a\\b:c*d?e\"f<g>h|i", u"a_b_c_d_e_f_g_h_i.xml"},
        {u"con blancos . ", u"con blancos.xml"},
        {u".oculto", u"_.oculto.xml"},
        {u"..", u"_.xml"}};
    for (const auto &[clave, nombre] : casos)
        EXPECT_EQ(NombreDeArchivo(QString::fromUtf16(clave)), QString::fromUtf16(nombre));
}

/// Arms, settles and reads every demonstration operation of a store.
QList<QByteArray> documentosDeDemostracion(const char *etiqueta) {
    QList<QByteArray> documentos;
    const Tienda tienda(QLatin1String(etiqueta), true);
    Registro registro;
    const std::unique_ptr<AppContext> ctx = tienda.contexto(registro);
    fijarContexto(ctx.get());
    // Those linked to articles are the server's alone.
    Ejecutar(*ctx, u"CATALOGOS"_s, u"delete from articulo_ventaja"_s);
    for (const char *clave : {"IC-2026-0001", "EC-2026-0002", "IT-2026-0003", "DJAI-2026-0004",
                              "ICR-2026-0005", "EC-2026-0006"}) {
        const QString interno = QLatin1String(clave);
        ctx->ChequeoArmado = u"SI"_s;
        registro.respuestas.assign(20, true);
        EXPECT_TRUE(Generar(*ctx, interno, {})) << clave;
        ctx->LiquidacionPendiente = true;
        ClassLiquidacion calculo(*ctx, interno);
        RecalcularOperacion(*ctx, interno, calculo);
        const Transferencia t = PrepararTransferencia(*ctx, interno);
        EXPECT_FALSE(t.declaracion.items.empty()) << clave;
        for (const Advertencia &a : t.advertencias)
            EXPECT_TRUE(a.texto.contains(u"bultos no están"_s) || a.texto.contains(u"sin motivo"_s) ||
                        a.texto.contains(u"ventaja repetida"_s))
                << clave << ": " << a.texto.toStdString();
        documentos << DocumentoDe(t.declaracion);
        EXPECT_EQ(DefectoDelDocumento(documentos.last()).toStdString(), "") << clave;
    }
    fijarContexto(nullptr);
    return documentos;
}

TEST(DocumentoDeDosStores, EveryDemonstrationOperationGivesTheSameBytesOnBoth) {
    const QList<QByteArray> deArchivos = documentosDeDemostracion("ACCESS");
    const QList<QByteArray> deServidor = documentosDeDemostracion("SQL");
    ASSERT_EQ(deArchivos.size(), deServidor.size());
    for (qsizetype i = 0; i < deArchivos.size(); ++i) {
        const QList<QByteArray> uno = deArchivos[i].split('\n');
        const QList<QByteArray> otro = deServidor[i].split('\n');
        ASSERT_EQ(uno.size(), otro.size());
        for (qsizetype n = 0; n < uno.size(); ++n) EXPECT_EQ(uno[n].toStdString(), otro[n].toStdString());
        EXPECT_EQ(deArchivos[i], deServidor[i]);
    }
}

}  // namespace
