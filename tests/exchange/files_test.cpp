// Files that are no good: each is one sentence, and nothing of it is imported.

#include <QDir>
#include <QFile>

#include "operations/exchangefile.h"
#include "tests/exchange/oficinas.h"

using namespace Qt::StringLiterals;
using namespace intercambio;

namespace {

class ArchivoMalo : public DosOficinas {
 protected:
    QString escribir(const QByteArray &bytes) const {
        QFile f(en("malo.zop"));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return f.fileName();
    }
    /// The sentence about the file, without its name; importing says the same and leaves the store as it was.
    QString dicho(const QString &archivo) {
        const QString defecto = Mirar(otra(), archivo).defecto;
        const Importacion r = Importar(
            otra(), archivo, {{u"IC-2026-0001"_s, {Decision::Importar}}, {u"X"_s, {Decision::Importar}}});
        EXPECT_EQ(r.defecto, defecto);
        EXPECT_TRUE(r.operaciones.empty());
        EXPECT_EQ(uno(otra(), u"select count(*) as n from caratula"_s), u"0"_s);
        EXPECT_EQ(uno(otra(), u"select count(*) as n from subitems"_s), u"0"_s);
        EXPECT_EQ(uno(otra(), u"select count(*) as n from clientes"_s, u"PERSONAL"_s), u"0"_s);
        return QString(defecto).replace(QDir::toNativeSeparators(archivo), u"F"_s);
    }
    const QString deOtro =
        u"El archivo F no es de operaciones exportadas por este programa; elija otro archivo."_s;
    const QString incompleto =
        u"El archivo F está incompleto; vuelva a copiarlo o pida que lo exporten otra vez."_s;
    const QString danado =
        u"El archivo F está dañado: su suma de control no coincide; vuelva a copiarlo o pida que lo exporten otra "
        "vez."_s;
};
EN_AMBOS_STORES(ArchivoMalo);

TEST_P(ArchivoMalo, OneOfAnotherProgramIsToldAsSuch) {
    for (const char *texto :
         {"%PDF-1.7 …", "interno;fecha\r\nA;1\r\n", "{\"formato\":\"zendra-operaciones\"}\n", "P"})
        EXPECT_EQ(dicho(escribir(texto)), deOtro) << texto;
    // Compressed, and still none of ours: without a line, with a line of its own.
    for (const char *texto :
         {"", "un texto sin fin de línea", "un texto\n", "{\"formato\":\"otro\",\"version\":1}\n"}) {
        comprimir(texto, en("malo.zop"));
        EXPECT_EQ(dicho(en("malo.zop")), deOtro) << texto;
    }
}

TEST_P(ArchivoMalo, OneThatCannotBeReadIsTold) {
    EXPECT_EQ(dicho(en("no hay.zop")), u"No se puede leer el archivo F; revise la ruta y los permisos."_s);
    EXPECT_EQ(dicho(tienda->carpeta()), u"No se puede leer el archivo F; revise la ruta y los permisos."_s);
}

TEST_P(ArchivoMalo, OneThatStopsAnywhereIsNotWhole) {
    exportar({u"IC-2026-0001"_s}, en("sano.zop"));
    const QByteArray sano = bytesDe(en("sano.zop"));
    for (qsizetype largo = 0; largo < sano.size(); largo += 97)
        ASSERT_EQ(dicho(escribir(sano.left(largo))), incompleto) << largo;
    for (qsizetype menos = 1; menos < 12; ++menos)
        ASSERT_EQ(dicho(escribir(sano.chopped(menos))), incompleto) << menos;
    // Cut ahead of its compression.
    const QByteArray lineas = expandido(en("sano.zop"));
    comprimir(lineas.left(lineas.lastIndexOf("{\"suma")), en("malo.zop"));
    EXPECT_EQ(dicho(en("malo.zop")), incompleto);
    comprimir(lineas.left(lineas.size() / 2), en("malo.zop"));
    EXPECT_EQ(dicho(en("malo.zop")), incompleto);
}

TEST_P(ArchivoMalo, OneWithAByteChangedAnywhereIsNotTaken) {
    exportar({u"IC-2026-0001"_s}, en("sano.zop"));
    const QByteArray sano = bytesDe(en("sano.zop"));
    // Behind the head of the compression, whose clock and system nobody looks at.
    for (qsizetype donde = 10; donde < sano.size(); donde += 101) {
        QByteArray otro = sano;
        otro[donde] = static_cast<char>(otro.at(donde) ^ 0x10);
        EXPECT_FALSE(dicho(escribir(otro)).isEmpty()) << donde;
    }
    QByteArray control = sano;
    control[control.size() - 6] = static_cast<char>(control.at(control.size() - 6) ^ 1);
    EXPECT_EQ(dicho(escribir(control)), danado);
    EXPECT_EQ(dicho(escribir(sano + "x")), danado);
}

TEST_P(ArchivoMalo, OneThatWasEditedDoesNotMatchItsChecksum) {
    exportar({u"IC-2026-0001"_s}, en("sano.zop"));
    QByteArray lineas = expandido(en("sano.zop"));
    ASSERT_TRUE(lineas.contains("HIDRAULICA"));
    comprimir(lineas.replace("HIDRAULICA", "HIDRAULICO"), en("malo.zop"));
    EXPECT_EQ(dicho(en("malo.zop")), danado);
}

TEST_P(ArchivoMalo, OneOfALaterVersionAsksForANewerProgram) {
    comprimir("{\"formato\":\"zendra-operaciones\",\"operaciones\":0,\"version\":2}\n", en("malo.zop"), true);
    EXPECT_EQ(
        dicho(en("malo.zop")),
        u"El archivo F es de la versión 2 del formato y este programa lee hasta la 1; actualice el programa."_s);
}

TEST_P(ArchivoMalo, LinesThatMeanNothingAreToldByTheirNumber) {
    const QByteArray cabeza = "{\"formato\":\"zendra-operaciones\",\"operaciones\":1,\"version\":1}\n";
    const std::pair<const char *, int> casos[] = {
        {"[1]\n", 2},                                                   // a row of no table
        {"{\"tabla\":\"caratula\",\"columnas\":[\"idsubreg\"]}\n", 2},  // of no operation
        {"{\"operacion\":\"X\"}\n[\"a\"]\n", 3},                        // a row of no table
        {"{\"operacion\":\"X\"}\nno es JSON\n", 3},
        {"{\"operacion\":\"X\"}\n{\"operacion\":\"Y\"}\n", 3},
        {"{\"operacion\":\"X\"}\n{\"tabla\":\"caratula\",\"columnas\":[]}\n", 3},
        {"{\"operacion\":\"X\"}\n{\"fin\":\"X\",\"filas\":7}\n", 3},  // rows that are not there
        {"{\"operacion\":\"\"}\n", 2},
    };
    for (const auto &[lineas, numero] : casos) {
        comprimir(cabeza + lineas, en("malo.zop"), true);
        EXPECT_EQ(
            dicho(en("malo.zop")),
            u"El archivo F no tiene la forma esperada en su línea %1; pida que lo vuelvan a exportar."_s.arg(
                numero))
            << lineas;
    }
}

TEST_P(ArchivoMalo, ACountThatDoesNotMatchAndAnOperationThatComesTwiceAreTold) {
    const QByteArray una = "{\"operacion\":\"X\"}\n{\"fin\":\"X\",\"filas\":0}\n";
    const QByteArray dos = "{\"formato\":\"zendra-operaciones\",\"operaciones\":2,\"version\":1}\n";
    comprimir(dos + una, en("malo.zop"), true);
    EXPECT_TRUE(dicho(en("malo.zop")).contains(u"no tiene la forma esperada"_s));
    comprimir(dos + una + una, en("malo.zop"), true);
    EXPECT_EQ(dicho(en("malo.zop")),
              u"El archivo F tiene dos veces la operación X; pida que lo exporten otra vez."_s);
}

TEST_P(ArchivoMalo, ATableOrARowThatDoesNotFitEndsThatOperationAlone) {
    const QByteArray cabeza = "{\"formato\":\"zendra-operaciones\",\"operaciones\":2,\"version\":1}\n";
    const QByteArray buena =
        "{\"operacion\":\"BUENA\"}\n{\"columnas\":[\"idsubreg\"],\"tabla\":\"caratula\"}\n[\"IC01\"]\n"
        "{\"fin\":\"BUENA\",\"filas\":1}\n";
    const std::pair<const char *, QString> casos[] = {
        {"{\"columnas\":[\"id\"],\"tabla\":\"version\"}\n[\"331\"]\n",
         u"La tabla version no es de una operación."_s},
        {"{\"columnas\":[\"factura\",\"orden\"],\"tabla\":\"facturas\"}\n[\"F1\"]\n", u"forma esperada"_s},
        {"{\"columnas\":[\"factura\"],\"tabla\":\"facturas\"}\n[{\"a\":1}]\n", u"forma esperada"_s},
        {"{\"columnas\":[\"factura\"],\"tabla\":\"facturas\"}\n[\"F1\"]\n", u"Falta su carátula."_s},
        {"{\"columnas\":[\"nombre\"],\"tabla\":\"clientes\"}\n[\"F1\"]\n",
         u"Falta la columna cuit de clientes."_s},
    };
    for (const auto &[lineas, dice] : casos) {
        comprimir(cabeza + "{\"operacion\":\"MALA\"}\n" + lineas + "{\"fin\":\"MALA\",\"filas\":1}\n" + buena,
                  en("malo.zop"), true);
        const Importacion r = importarEn(*ctx, en("malo.zop"));
        EXPECT_EQ(r.defecto, QString());
        ASSERT_EQ(r.operaciones.size(), 2U);
        EXPECT_EQ(r.operaciones[0].fin, Importada::Fin::Fallida);
        EXPECT_TRUE(r.operaciones[0].aviso.startsWith(u"No se importó la operación MALA: "_s) &&
                    r.operaciones[0].aviso.contains(dice))
            << r.operaciones[0].aviso.toStdString();
        EXPECT_EQ(r.operaciones[1].fin, Importada::Fin::Importada);
        EXPECT_EQ(r.resumen(), u"Se importó 1 operación, falló 1."_s);
        EXPECT_EQ(cuentas(*ctx, u"MALA"_s), QString());
        EXPECT_EQ(cuentas(*ctx, u"BUENA"_s), u"caratula 1"_s);
        ejecutar(u"delete from caratula where interno = 'BUENA'"_s);
    }
}

// A name of a column goes into a statement as it stands: only those of the store do.
TEST_P(ArchivoMalo, ANameThatIsNoColumnNeverReachesTheStore) {
    comprimir(
        "{\"formato\":\"zendra-operaciones\",\"operaciones\":1,\"version\":1}\n{\"operacion\":\"X\"}\n"
        "{\"columnas\":[\"idsubreg\",\"factura8) values ('Y','S'); delete from caratula --\"],\"tabla\":\"caratula\"}\n"
        "[\"IC01\",\"S\"]\n{\"fin\":\"X\",\"filas\":1}\n",
        en("malo.zop"), true);
    const QString antes = valor(u"select count(*) as n from caratula"_s);
    importarEn(*ctx, en("malo.zop"));
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s).toInt(), antes.toInt() + 1);
    EXPECT_EQ(valor(u"select idsubreg from caratula where interno = 'X'"_s), u"IC01"_s);
}

}  // namespace
