// What the batch program says of itself, and what it says to a command line that it cannot follow.

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "frame/version.h"
#include "operations/batch.h"
#include "tests/support/lote.h"

using namespace Qt::StringLiterals;

namespace {

class Ayuda : public ::testing::Test {
 protected:
    /// What is shown, with status 0 and nothing on standard error.
    QString mostrado(const QStringList &argumentos) const {
        const Corrida c = Lote(dir.path(), argumentos);
        EXPECT_EQ(c.estado, 0) << argumentos.join(' ').toStdString() << ": " << c.errores.toStdString();
        EXPECT_EQ(c.errores, QString());
        EXPECT_TRUE(c.lineas.empty()) << "no line of JSON among the help";
        return c.ilegibles.join('\n');
    }
    /// The one sentence of a wrong use.
    QString negado(const QStringList &argumentos) const {
        const Corrida c = Lote(dir.path(), argumentos);
        EXPECT_EQ(c.estado, 2) << argumentos.join(' ').toStdString();
        EXPECT_TRUE(c.lineas.empty() && c.ilegibles.isEmpty()) << argumentos.join(' ').toStdString();
        EXPECT_EQ(c.errores.count('\n'), 1) << c.errores.toStdString();
        return c.errores.trimmed();
    }
    QTemporaryDir dir;
};

TEST_F(Ayuda, TheGeneralHelpNamesEveryCommandAndEveryOptionAndHowToSeeMore) {
    const QString texto = mostrado({"--ayuda"});
    EXPECT_TRUE(texto.contains(u"Uso: zendra_lote --perfil ARCHIVO COMANDO [opciones]"_s))
        << texto.toStdString();
    for (const consola::Comando &c : lote::Comandos())
        EXPECT_TRUE(texto.contains(QString::fromUtf8(c.texto).section(' ', 0, 4))) << c.nombre;
    for (const char *parte :
         {"--perfil ARCHIVO", "--ajustes ARCHIVO", "--opciones ARCHIVO", "--respuestas ARCHIVO",
          "--traza ARCHIVO", "--version", "zendra_lote COMANDO --ayuda"})
        EXPECT_TRUE(texto.contains(QLatin1String(parte))) << parte;
    EXPECT_EQ(mostrado({"-h"}), texto);
    EXPECT_EQ(mostrado({"--help"}), texto);
}

TEST_F(Ayuda, EachCommandHasItsOwnHelpWithItsArgumentsAndOptions) {
    EXPECT_EQ(lote::Comandos().size(), 25U);
    for (const consola::Comando &c : lote::Comandos()) {
        const QString nombre = QString::fromUtf8(c.nombre);
        const QString texto = mostrado({nombre, "--ayuda"});
        const bool sobreUna = nombre != "listar"_L1 && nombre != "lista"_L1 && nombre != "licencias"_L1 &&
                              !nombre.startsWith("catalogo "_L1) && nombre != "importar"_L1 &&
                              nombre != "stock revisar"_L1 && nombre != "stock listar"_L1;
        EXPECT_TRUE(texto.startsWith(QString::fromUtf8(c.texto).section(' ', 0, 4))) << texto.toStdString();
        QString uso = u"Uso: zendra_lote --perfil ARCHIVO "_s + nombre;
        for (const consola::Argumento &a : c.argumentos)
            uso += (a.optativo    ? u" [%1]"_s
                    : a.repetible ? u" %1..."_s
                                  : u" %1"_s)
                       .arg(QLatin1String(a.nombre));
        QStringList unaDeEstas;
        for (const consola::Opcion &o : c.opciones)
            if (*o.grupo != '\0')
                unaDeEstas << u"--%1 %2"_s.arg(QLatin1String(o.nombre), QLatin1String(o.valor));
        if (!unaDeEstas.isEmpty()) uso += u" (%1)"_s.arg(unaDeEstas.join(u" | "_s));
        for (const consola::Opcion &o : c.opciones)
            if (o.obligatoria) uso += u" --%1 %2"_s.arg(QLatin1String(o.nombre), QLatin1String(o.valor));
        EXPECT_TRUE(texto.contains(uso + u" [opciones]\n"_s)) << texto.toStdString();
        EXPECT_EQ(texto.contains(QRegularExpression(u"CLAVE(\\.\\.\\.)? +la clave de una operación"_s)),
                  sobreUna)
            << c.nombre;
        EXPECT_EQ(texto.contains(u"--forzar"_s), nombre == "armar"_L1) << c.nombre;
        EXPECT_TRUE(texto.contains(u"--respuestas ARCHIVO"_s)) << c.nombre;
    }
}

TEST_F(Ayuda, TheHelpOfACommandIsShownWhateverElseIsMissing) {
    const QString texto = mostrado({"armar", "--ayuda"});
    EXPECT_EQ(mostrado({"--ayuda", "armar"}), texto);
    EXPECT_EQ(mostrado({"--perfil", "/no/hay.ini", "armar", "A1", "A2", "--ayuda"}), texto);
}

TEST_F(Ayuda, TheVersionIsTheProgramsWithTheDayOfItsBuild) {
    const QString esperada = u"zendra_lote %1 (%2)"_s.arg(TextoDeVersion(), TextoFechaZendra());
    EXPECT_EQ(mostrado({"--version"}), esperada);
    EXPECT_EQ(mostrado({"-v"}), esperada);
}

TEST_F(Ayuda, AWrongUseIsOneSentenceThatNamesTheHelpOfItsCommand) {
    const QString p = dir.filePath("p.ini");
    struct Caso {
        QStringList argumentos;
        QString dice;
    };
    const Caso casos[] = {
        {{}, u"Falta --perfil ARCHIVO; vea zendra_lote --ayuda."_s},
        {{"listar"}, u"Falta --perfil ARCHIVO; vea zendra_lote listar --ayuda."_s},
        {{"--perfil"}, u"A la opción --perfil le falta su valor; vea zendra_lote --ayuda."_s},
        {{"--perfil", "", "listar"},
         u"A la opción --perfil le falta su valor; vea zendra_lote listar --ayuda."_s},
        {{"--perfil", p, "--perfil", p, "listar"},
         u"La opción --perfil va una sola vez; vea zendra_lote listar --ayuda."_s},
        {{"--perfil", p}, u"Falta el comando; vea zendra_lote --ayuda."_s},
        {{"--perfil", p, "volar"}, u"No existe el comando \"volar\"; vea zendra_lote --ayuda."_s},
        {{"volar", "--ayuda"}, u"No existe el comando \"volar\"; vea zendra_lote --ayuda."_s},
        {{"--perfil", p, "armar", "--volar", "A1"},
         u"No existe la opción --volar; vea zendra_lote armar --ayuda."_s},
        {{"--perfil", p, "armar", "-z", "A1"}, u"No existe la opción -z; vea zendra_lote armar --ayuda."_s},
        {{"--perfil", p, "armar", "--forzar=si", "A1"},
         u"La opción --forzar no lleva valor; vea zendra_lote armar --ayuda."_s},
        {{"--perfil", p, "borrar", "--forzar", "A1"},
         u"La opción --forzar es del comando armar; vea zendra_lote borrar --ayuda."_s},
        {{"--perfil", p, "liquidar"},
         u"Falta CLAVE (la clave de una operación); vea zendra_lote liquidar --ayuda."_s},
        {{"--perfil", p, "comprobar", " "},
         u"Falta CLAVE (la clave de una operación); vea zendra_lote comprobar --ayuda."_s},
        {{"--perfil", p, "borrar", "A1", "A2"},
         u"Sobra \"A2\": el comando borrar lleva sólo CLAVE (la clave de una operación); vea zendra_lote "
         "borrar --ayuda."_s},
        {{"--perfil", p, "listar", "A1"},
         u"Sobra \"A1\": el comando listar no lleva argumentos; vea zendra_lote listar --ayuda."_s},
        {{"--perfil", p, "crear", QString(41, 'k')},
         u"CLAVE no sirve: la clave de una operación tiene 40 caracteres como máximo; vea zendra_lote crear "
         "--ayuda."_s},
    };
    for (const Caso &caso : casos) EXPECT_EQ(negado(caso.argumentos).toStdString(), caso.dice.toStdString());
}

TEST_F(Ayuda, AFileThatDoesNotFitInMemoryIsToldAndTheProgramEndsInOrder) {
    QFile permiso(u"/proc/sys/vm/overcommit_memory"_s);
    if (permiso.open(QIODevice::ReadOnly) && permiso.readAll().startsWith('1'))
        GTEST_SKIP() << "this machine promises any amount of memory (vm.overcommit_memory = 1)";
    // A file of four terabytes that takes no room on the disk; no machine reads it whole.
    QFile enorme(dir.filePath("enorme.ini"));
    ASSERT_TRUE(enorme.open(QIODevice::WriteOnly));
    ASSERT_TRUE(enorme.resize(qint64(1) << 42));
    enorme.close();
    qputenv("ASAN_OPTIONS", "allocator_may_return_null=1");
    for (const QStringList &argumentos :
         {QStringList{"--perfil", enorme.fileName(), "--ajustes", dir.filePath("a.ini"), "listar"},
          {"--perfil", dir.path(), "--opciones", enorme.fileName(), "listar"}}) {
        const Corrida c = Lote(dir.path(), argumentos);
        EXPECT_EQ(c.estado, 1);
        ASSERT_EQ(c.lineas.size(), 2U) << c.errores.toStdString();
        EXPECT_TRUE(c.textos()[0].contains(u"memoria"_s)) << c.textos()[0].toStdString();
        EXPECT_EQ(c.resultado(), (QJsonObject{{"resultado", "listar"}, {"estado", 1}}));
    }
    qunsetenv("ASAN_OPTIONS");
}

}  // namespace
