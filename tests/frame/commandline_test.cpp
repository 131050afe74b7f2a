// How a command line is read by its description.

#include "frame/commandline.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString defectoDePar(const QString &valor) {
    return valor.contains('=') ? QString() : u"\"%1\" no es A=B"_s.arg(valor);
}

const consola::Programa &conComandos() {
    static const consola::Programa p{
        .nombre = "obra",
        .texto = u"Hace obras."_s,
        .opciones = {{.nombre = "plano", .valor = "ARCHIVO", .texto = "El plano.", .obligatoria = true}},
        .comandos = {{.nombre = "alzar",
                      .texto = "Alza una pared entre dos puntos.",
                      .argumentos = {{.nombre = "DESDE", .texto = "un punto"},
                                     {.nombre = "HASTA", .texto = "otro punto"}},
                      .opciones = {{.nombre = "doble", .texto = "Dos veces."}}},
                     {.nombre = "medir", .texto = "Mide."}}};
    return p;
}

const consola::Programa &sinComandos() {
    static const consola::Programa p{.nombre = "pala",
                                     .texto = u"Mueve cosas."_s,
                                     .opciones = {{.nombre = "par",
                                                   .valor = "A=B",
                                                   .texto = "Un par.",
                                                   .repetible = true,
                                                   .control = defectoDePar},
                                                  {.nombre = "lento", .texto = "Despacio.", .soloCon = "par"},
                                                  {.nombre = "ya", .texto = "Ahora.", .excluyeA = "luego"},
                                                  {.nombre = "luego", .texto = "Después."}},
                                     .nota = "Nada más."};
    return p;
}

const consola::Programa &conGrupo() {
    static const consola::Programa p{
        .nombre = "grua",
        .texto = u"Levanta cosas."_s,
        .comandos = {
            {.nombre = "alzar",
             .texto = "Alza una cosa.",
             .opciones = {{.nombre = "caja", .valor = "N", .texto = "Una caja.", .grupo = "cosa"},
                          {.nombre = "con", .valor = "GANCHO", .texto = "Con qué.", .obligatoria = true},
                          {.nombre = "viga", .valor = "N", .texto = "Una viga.", .grupo = "cosa"},
                          {.nombre = "todo", .texto = "Lo que haya.", .grupo = "cosa"}}},
            {.nombre = "bajar", .texto = "Baja."}}};
    return p;
}

consola::Pedido leer(const consola::Programa &p, const QStringList &argumentos) {
    return consola::Leer(p, QStringList{"x"} + argumentos);
}

void seNiega(const consola::Programa &p, const QStringList &argumentos, const QString &dice) {
    const consola::Pedido pedido = leer(p, argumentos);
    EXPECT_EQ(pedido.que, consola::Que::MalUso) << argumentos.join(' ').toStdString();
    EXPECT_EQ(pedido.texto.toStdString(), dice.toStdString());
}

TEST(CommandLine, TheCommandItsArgumentsAndTheOptionsAreHandedOver) {
    const consola::Pedido p = leer(conComandos(), {"alzar", "--plano", "p.txt", " a ", "--doble", "b"});
    EXPECT_EQ(p.que, consola::Que::Trabajar) << p.texto.toStdString();
    EXPECT_EQ(p.comando, "alzar"_L1);
    EXPECT_EQ(p.argumentos, (QStringList{"a", "b"}));
    EXPECT_EQ(p.valor("plano"), "p.txt"_L1);
    EXPECT_TRUE(p.tiene("doble"));
    EXPECT_EQ(leer(conComandos(), {"--plano=q", "medir"}).valor("plano"), "q"_L1);
    EXPECT_FALSE(leer(conComandos(), {"--plano=q", "medir"}).tiene("doble"));
}

TEST(CommandLine, AnOptionThatMayBeRepeatedKeepsItsOrder) {
    const consola::Pedido p = leer(sinComandos(), {"--par", "b=1", "--par", "a=2", "--lento"});
    EXPECT_EQ(p.que, consola::Que::Trabajar) << p.texto.toStdString();
    EXPECT_EQ(p.valores("par"), (QStringList{"b=1", "a=2"}));
    EXPECT_EQ(p.valor("par"), "b=1"_L1);
    EXPECT_EQ(leer(sinComandos(), {}).que, consola::Que::Trabajar);
}

TEST(CommandLine, ACommandOfTwoWordsIsOneOfSeveralOnTheSameThing) {
    static const consola::Programa p{.nombre = "obra",
                                     .texto = u"Hace obras."_s,
                                     .comandos = {{.nombre = "pared alzar",
                                                   .texto = "La alza.",
                                                   .argumentos = {{.nombre = "CUAL", .texto = "una"}}},
                                                  {.nombre = "pared pintar", .texto = "La pinta."}}};
    const consola::Pedido pedido = leer(p, {"pared", "alzar", "a"});
    EXPECT_EQ(pedido.que, consola::Que::Trabajar) << pedido.texto.toStdString();
    EXPECT_EQ(pedido.comando, "pared alzar"_L1);
    EXPECT_EQ(pedido.argumentos, QStringList{"a"});
    EXPECT_TRUE(
        leer(p, {"pared", "alzar", "--ayuda"}).texto.contains(u"Uso: obra pared alzar CUAL [opciones]"_s));
    seNiega(p, {"pared"}, u"Falta qué hacer con pared (alzar, pintar); vea obra --ayuda."_s);
    seNiega(p, {"pared", "volar"},
            u"No existe el comando \"pared volar\" (alzar, pintar); vea obra --ayuda."_s);
    seNiega(p, {"alzar"}, u"No existe el comando \"alzar\"; vea obra --ayuda."_s);
    seNiega(p, {"pared", "alzar"}, u"Falta CUAL (una); vea obra pared alzar --ayuda."_s);
}

TEST(CommandLine, WhatStandsBehindTwoDashesIsAnArgument) {
    const consola::Pedido p = leer(conComandos(), {"--plano", "p", "alzar", "--", "-a", "--doble"});
    EXPECT_EQ(p.argumentos, (QStringList{"-a", "--doble"})) << p.texto.toStdString();
    EXPECT_FALSE(p.tiene("doble"));
}

TEST(CommandLine, EveryWrongUseIsOneSentenceOfWhatAndWhereToLook) {
    seNiega(conComandos(), {"alzar", "a", "b"}, u"Falta --plano ARCHIVO; vea obra alzar --ayuda."_s);
    seNiega(conComandos(), {"--plano", "p", "alzar", "a"},
            u"Falta HASTA (otro punto); vea obra alzar --ayuda."_s);
    seNiega(conComandos(), {"--plano", "p", "alzar", "a", "b", "c"},
            u"Sobra \"c\": el comando alzar lleva sólo DESDE (un punto) y HASTA (otro punto); vea obra alzar "
            "--ayuda."_s);
    seNiega(conComandos(), {"--plano", "p", "medir", "--doble"},
            u"La opción --doble es del comando alzar; vea obra medir --ayuda."_s);
    seNiega(sinComandos(), {"suelto"}, u"Sobra \"suelto\": pala no lleva argumentos; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--par", "ab"}, u"--par no sirve: \"ab\" no es A=B; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--lento"}, u"La opción --lento sólo sirve con --par; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--ya", "--luego"},
            u"Las opciones --ya y --luego no van juntas; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--luego", "--ya"},
            u"Las opciones --ya y --luego no van juntas; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--par"}, u"A la opción --par le falta su valor; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--ya=1"}, u"La opción --ya no lleva valor; vea pala --ayuda."_s);
    seNiega(sinComandos(), {"--ayuda=1"}, u"La opción --ayuda no lleva valor; vea pala --ayuda."_s);
}

TEST(CommandLine, OfAGroupOneOptionHasToComeAndNoOtherBesideIt) {
    const QStringList orden{"alzar", "--con", "g"};
    EXPECT_EQ(leer(conGrupo(), orden + QStringList{"--viga", "2"}).valor("viga"), "2"_L1);
    EXPECT_TRUE(leer(conGrupo(), orden + QStringList{"--todo"}).tiene("todo"));
    EXPECT_EQ(leer(conGrupo(), {"bajar"}).que, consola::Que::Trabajar) << "the group is of its command";
    seNiega(conGrupo(), orden, u"Falta --caja N o --viga N o --todo; vea grua alzar --ayuda."_s);
    seNiega(conGrupo(), orden + QStringList{"--viga", "1", "--caja", "1"},
            u"Las opciones --caja y --viga no van juntas; vea grua alzar --ayuda."_s);
    seNiega(conGrupo(), {"bajar", "--todo"},
            u"La opción --todo es del comando alzar; vea grua bajar --ayuda."_s);
    const QString ayuda = leer(conGrupo(), {"alzar", "--ayuda"}).texto;
    EXPECT_TRUE(ayuda.contains(u"Uso: grua alzar (--caja N | --viga N | --todo) --con GANCHO [opciones]\n"_s))
        << ayuda.toStdString();
}

TEST(CommandLine, TheHelpIsMadeOfTheDescription) {
    const consola::Pedido general = leer(conComandos(), {"--ayuda"});
    EXPECT_EQ(general.que, consola::Que::Mostrar);
    EXPECT_EQ(general.texto.toStdString(),
              "Hace obras.\n"
              "\n"
              "Uso: obra --plano ARCHIVO COMANDO [opciones]\n"
              "\n"
              "Comandos:\n"
              "  alzar DESDE HASTA  Alza una pared entre dos puntos.\n"
              "  medir              Mide.\n"
              "\n"
              "Opciones:\n"
              "  --plano ARCHIVO  El plano. Obligatoria.\n"
              "\n"
              "Sobre el programa:\n"
              "  --ayuda    Muestra esta ayuda (también -h y --help).\n"
              "  --version  Muestra la versión y la fecha en que se generó (también -v).\n"
              "\n"
              "Cada comando tiene su ayuda: obra COMANDO --ayuda\n");
    EXPECT_EQ(leer(conComandos(), {"alzar", "--ayuda"}).texto.toStdString(),
              "Alza una pared entre dos puntos.\n"
              "\n"
              "Uso: obra --plano ARCHIVO alzar DESDE HASTA [opciones]\n"
              "\n"
              "Argumentos:\n"
              "  DESDE  un punto\n"
              "  HASTA  otro punto\n"
              "\n"
              "Opciones del comando:\n"
              "  --doble  Dos veces.\n"
              "\n"
              "Opciones:\n"
              "  --plano ARCHIVO  El plano. Obligatoria.\n");
    const QString sin = leer(sinComandos(), {"-h"}).texto;
    EXPECT_TRUE(sin.contains(u"Uso: pala [opciones]\n"_s)) << sin.toStdString();
    EXPECT_TRUE(sin.contains(u"--par A=B  Un par. Puede repetirse.\n"_s)) << sin.toStdString();
    EXPECT_TRUE(sin.endsWith(u"\nNada más.\n"_s)) << sin.toStdString();
}

QString defectoDePareja(const QStringList &argumentos) {
    return argumentos.value(0) == argumentos.value(1) ? u"\"%1\" va dos veces"_s.arg(argumentos[0])
                                                      : QString();
}

TEST(CommandLine, TheLastArgumentMayBeOneThatNeedNotCome) {
    const consola::Programa p{
        .nombre = "obra",
        .texto = u"Hace obras."_s,
        .comandos = {{.nombre = "pintar",
                      .texto = "Pinta.",
                      .argumentos = {{.nombre = "PARED", .texto = "una pared"},
                                     {.nombre = "COLOR", .texto = "su color", .optativo = true}},
                      .control = defectoDePareja}}};
    EXPECT_EQ(leer(p, {"pintar", "a"}).argumentos, QStringList{"a"});
    EXPECT_EQ(leer(p, {"pintar", "a", "rojo"}).argumentos, (QStringList{"a", "rojo"}));
    seNiega(p, {"pintar"}, u"Falta PARED (una pared); vea obra pintar --ayuda."_s);
    seNiega(p, {"pintar", "a", "rojo", "liso"},
            u"Sobra \"liso\": el comando pintar lleva sólo PARED (una pared) y [COLOR] (su color); vea obra "
            "pintar --ayuda."_s);
    seNiega(p, {"pintar", "a", "a"}, u"\"a\" va dos veces; vea obra pintar --ayuda."_s);
    EXPECT_TRUE(leer(p, {"--ayuda"}).texto.contains(u"  pintar PARED [COLOR]  Pinta.\n"_s));
    const QString ayuda = leer(p, {"pintar", "--ayuda"}).texto;
    EXPECT_TRUE(ayuda.contains(u"Uso: obra pintar PARED [COLOR] [opciones]\n"_s)) << ayuda.toStdString();
    EXPECT_TRUE(ayuda.contains(u"  PARED    una pared\n  [COLOR]  su color\n"_s)) << ayuda.toStdString();
}

TEST(CommandLine, TheLastArgumentMayBeOneThatComesSeveralTimes) {
    const consola::Programa p{
        .nombre = "obra",
        .texto = u"Hace obras."_s,
        .comandos = {
            {.nombre = "pintar",
             .texto = "Pinta.",
             .argumentos = {
                 {.nombre = "PARED",
                  .texto = "una pared",
                  .control = [](const QString &pared) { return pared == "z"_L1 ? u"no hay"_s : QString(); },
                  .repetible = true}}}}};
    EXPECT_EQ(leer(p, {"pintar", "a"}).argumentos, QStringList{"a"});
    EXPECT_EQ(leer(p, {"pintar", "a", "b", "c"}).argumentos, (QStringList{"a", "b", "c"}));
    seNiega(p, {"pintar"}, u"Falta PARED... (una pared); vea obra pintar --ayuda."_s);
    seNiega(p, {"pintar", "a", " "}, u"Falta PARED... (una pared); vea obra pintar --ayuda."_s);
    seNiega(p, {"pintar", "a", "z"}, u"PARED no sirve: no hay; vea obra pintar --ayuda."_s);
    const QString ayuda = leer(p, {"pintar", "--ayuda"}).texto;
    EXPECT_TRUE(ayuda.contains(u"Uso: obra pintar PARED... [opciones]\n"_s)) << ayuda.toStdString();
}

TEST(CommandLine, LongLinesOfAHelpAreCutAtWordsAndGoOnUnderTheirText) {
    const QByteArray larga = QByteArray("palabra ").repeated(30).trimmed();
    const consola::Programa p{
        .nombre = "x", .texto = u"X."_s, .opciones = {{.nombre = "o", .texto = larga.constData()}}};
    const QStringList lineas = leer(p, {"--ayuda"}).texto.split('\n');
    int conPalabras = 0;
    for (const QString &una : lineas) {
        EXPECT_LE(una.size(), 80) << una.toStdString();
        conPalabras += una.contains("palabra"_L1) ? 1 : 0;
        if (una.contains("palabra"_L1)) {
            EXPECT_EQ(una.indexOf("palabra"_L1), 6) << una.toStdString();
        }
    }
    EXPECT_GE(conPalabras, 3);
}

TEST(CommandLine, AnAnswerGoesWhereItBelongsWithItsStatus) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(consola::Contestar(leer(sinComandos(), {"--version"})), 0);
    EXPECT_EQ(consola::Contestar(leer(sinComandos(), {"--nada"})), 2);
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("pala "));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "No existe la opción --nada; vea pala --ayuda.\n");
}

}  // namespace
