// The screens that export operations and import them, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>

#include "operations/FrmExportarOperaciones.h"
#include "operations/FrmImportarOperaciones.h"
#include "operations/exchange.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class PantallasDeIntercambio : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"INTERCAMBIO"_s, u"CARPETA"_s, tienda->carpeta());
    }
    static void exportar(const std::function<void(FrmExportarOperaciones &)> &hacer) {
        conPantallaModal<FrmExportarOperaciones>([&hacer](FrmExportarOperaciones &p) {
            hacer(p);
            tecla(Qt::Key_Escape);
        });
        Pantalla<FrmExportarOperaciones>().Mostrar();
        CerrarPantalla<FrmExportarOperaciones>();
    }
    static void importar(const std::function<void(FrmImportarOperaciones &)> &hacer) {
        conPantallaModal<FrmImportarOperaciones>([&hacer](FrmImportarOperaciones &p) {
            hacer(p);
            tecla(Qt::Key_Escape);
        });
        Pantalla<FrmImportarOperaciones>().Mostrar();
        CerrarPantalla<FrmImportarOperaciones>();
    }
    QString en(const char *nombre) const { return tienda->carpeta() + u'/' + QLatin1String(nombre); }
    void escribirElArchivo(const QStringList &claves) const {
        const auto r = intercambio::Exportar(*ctx, claves, en("dos.zop"));
        ASSERT_TRUE(r.hecho) << r.aviso.toStdString();
    }
    static void indicar(FrmImportarOperaciones &p, const QString &archivo) {
        p.ui.TxtArchivo->setFocus();
        p.ui.TxtArchivo->selectAll();
        escribir(archivo);
        tecla(Qt::Key_Return);
    }
    static QString decision(const FrmImportarOperaciones &p, int fila) {
        return p.ui.GrOperaciones->item(fila, 6)->text();
    }
    QString cuantas(const QString &clave) {
        return valor(u"select count(*) as n from subitems where interno = '%1'"_s.arg(clave));
    }
    const QStringList dos{u"IC-2026-0001"_s, u"EC-2026-0002"_s};
};
EN_AMBOS_STORES(PantallasDeIntercambio);

TEST_P(PantallasDeIntercambio, TwoOperationsAreMarkedAndGoIntoAFile) {
    exportar([this](FrmExportarOperaciones &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtInterno);
        EXPECT_EQ(p.ui.TxtArchivo->text(), en("operaciones.zop"));
        EXPECT_FALSE(p.ui.CmdExportar->isEnabled());
        EXPECT_EQ(p.ui.LbMarcadas->text(), u"Ninguna operación marcada"_s);
        escribir(u"IC-"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 1), QStringList{u"IC-2026-0001"_s});
        tecla(Qt::Key_Space);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 0), QStringList{u"✓"_s});
        EXPECT_EQ(p.ui.TxtArchivo->text(), en("IC-2026-0001.zop")) << "the name tells what is in it";
        // Another search keeps the mark.
        p.ui.txtInterno->setFocus();
        p.ui.txtInterno->selectAll();
        escribir(u"EC-"_s);
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.Marcadas(), dos);
        EXPECT_EQ(p.ui.LbMarcadas->text(), u"2 operaciones marcadas"_s);
        EXPECT_EQ(p.ui.GrOperaciones->currentRow(), 1) << "on to the next one";
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].titulo, u"Exportar Operaciones"_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"Se exportaron 2 operaciones en %1 (%2 bytes)."_s.arg(en("operaciones.zop"))
                      .arg(QFile(en("operaciones.zop")).size()));
        EXPECT_TRUE(p.Marcadas().isEmpty());
        EXPECT_FALSE(p.ui.Pb->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
    });
    EXPECT_EQ(intercambio::Mirar(*ctx, en("operaciones.zop")).operaciones.size(), 2U);
}

TEST_P(PantallasDeIntercambio, AllOfTheGridAreMarkedAndUnmarkedByOneKey) {
    exportar([](FrmExportarOperaciones &p) {
        const int todas = p.ui.GrOperaciones->rowCount();
        EXPECT_GE(todas, 6);
        atajo(Qt::Key_M);
        EXPECT_EQ(p.Marcadas().size(), todas);
        atajo(Qt::Key_M);
        EXPECT_TRUE(p.Marcadas().isEmpty());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
    });
}

TEST_P(PantallasDeIntercambio, AnEarlierFileIsAskedAboutAndWithoutMarksOrFileNothingIsWritten) {
    escribirElArchivo({u"IC-2026-0001"_s});
    exportar([this](FrmExportarOperaciones &p) {
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"Marque al menos una operación con la barra espaciadora."_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
        tecla(Qt::Key_Space);
        p.ui.TxtArchivo->setFocus();
        p.ui.TxtArchivo->clear();
        tecla(Qt::Key_F11);
        EXPECT_EQ(registro.mensajes.back().texto, u"Indique el archivo donde se exporta."_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
        // A name alone is of the folder of the last one; the question is No by default.
        escribir(u"dos.zop"_s);
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
        EXPECT_EQ(registro.mensajes.size(), 2U);
        registro.respuestas.push_back(true);
        tecla(Qt::Key_F11);
        EXPECT_TRUE(registro.mensajes.back().texto.startsWith(u"Se exportó 1 operación en "_s));
        EXPECT_EQ(intercambio::Mirar(*ctx, en("dos.zop")).operaciones[0].clave,
                  p.ui.GrOperaciones->item(0, 1)->text());
        registro.archivos.push_back(en("elegido.zop"));
        tecla(Qt::Key_F6);
        EXPECT_EQ(registro.pedidos.back().filtros, u"Operaciones (*.zop)"_s);
        EXPECT_EQ(p.ui.TxtArchivo->text(), en("elegido.zop"));
    });
}

TEST_P(PantallasDeIntercambio, AnOperationThatIsOpenElsewhereIsToldAndLeavesNoFile) {
    ejecutar(u"insert into interno (interno,maquina) values ('DJAI-2026-0004','OTRA')"_s);
    exportar([this](FrmExportarOperaciones &p) {
        teclaEn(p.ui.GrOperaciones, Qt::Key_Space);
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_EQ(
            registro.mensajes[0].texto,
            u"El interno DJAI-2026-0004 está abierto por la PC OTRA; ciérrelo allá y vuelva a exportar."_s);
        EXPECT_EQ(p.Marcadas().size(), 1) << "the marks stay";
    });
    EXPECT_FALSE(QFile::exists(en("DJAI-2026-0004.zop")));
}

TEST_P(PantallasDeIntercambio, TheContentsOfAFileAreShownWithWhatIsToBeDone) {
    escribirElArchivo(dos);
    ejecutar(u"delete from caratula where interno = 'EC-2026-0002'"_s);
    importar([this](FrmImportarOperaciones &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
        EXPECT_FALSE(p.ui.CmdImportar->isEnabled());
        indicar(p, u"dos.zop"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 0), dos);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 1), (QStringList{u"IC04"_s, u"EC01"_s}));
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 3).front(), cuantas(u"IC-2026-0001"_s));
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 5), (QStringList{u"ya existe"_s, u"nueva"_s}));
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 6), (QStringList{u"omitir"_s, u"importar"_s}));
        EXPECT_EQ(p.ui.LbContenido->text(), u"2 operaciones en el archivo, 1 ya en este store"_s);
        // What is there is left out or replaced, what is not comes or is left out.
        EXPECT_TRUE(p.ui.CmdReemplazar->isEnabled());
        tecla(Qt::Key_Space);
        EXPECT_EQ(decision(p, 0), u"reemplazar"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(decision(p, 0), u"omitir"_s);
        tecla(Qt::Key_Down);
        EXPECT_FALSE(p.ui.CmdReemplazar->isEnabled());
        tecla(Qt::Key_Space);
        EXPECT_EQ(decision(p, 1), u"omitir"_s);
        tecla(Qt::Key_Space);
        EXPECT_EQ(decision(p, 1), u"importar"_s);
        atajo(Qt::Key_O);
        EXPECT_EQ(decision(p, 1), u"omitir"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallasDeIntercambio, WhatWasDecidedIsDoneAndToldInTheGridAndInOneMessage) {
    escribirElArchivo(dos);
    const QString lineas = cuantas(u"IC-2026-0001"_s);
    ejecutar(u"insert into subitems (interno) values ('IC-2026-0001')"_s);
    importar([this](FrmImportarOperaciones &p) {
        indicar(p, u"dos.zop"_s);
        atajo(Qt::Key_M);
        tecla(Qt::Key_Down);
        // The key that is proposed is free; one that is taken is refused.
        registro.textos.emplace_back(u"IC-2026-0001"_s);
        atajo(Qt::Key_N);
        ASSERT_EQ(registro.entradas.size(), 1U);
        EXPECT_EQ(registro.entradas[0].texto, u"Nueva clave para la operación EC-2026-0002"_s);
        EXPECT_EQ(registro.entradas[0].inicial, u"EC-2026-0002-2"_s);
        EXPECT_EQ(registro.entradas[0].maximo, 40);
        EXPECT_EQ(registro.mensajes.back().texto,
                  u"La operación IC-2026-0001 ya existe; elija otra clave o reemplácela."_s);
        EXPECT_EQ(decision(p, 1), u"omitir"_s);
        registro.textos.emplace_back(u" OTRA "_s);
        atajo(Qt::Key_N);
        EXPECT_EQ(decision(p, 1), u"nueva clave: OTRA"_s);
        registro.mensajes.clear();
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"Se importó 1 operación, se reemplazó 1."_s);
        EXPECT_EQ(registro.mensajes[0].titulo, u"Importar Operaciones"_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 6), (QStringList{u"reemplazada"_s, u"importada como OTRA"_s}));
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrOperaciones);
        EXPECT_FALSE(p.ui.Pb->isVisible());
        // Once more does nothing twice.
        tecla(Qt::Key_F11);
        EXPECT_EQ(registro.mensajes.back().texto, u"Se omitieron 2."_s);
    });
    EXPECT_EQ(cuantas(u"IC-2026-0001"_s), lineas);
    EXPECT_EQ(valor(u"select count(*) as n from caratula where interno = 'OTRA'"_s), u"1"_s);
}

TEST_P(PantallasDeIntercambio, WhatCannotComeInIsToldAndTheOthersCome) {
    escribirElArchivo(dos);
    ejecutar(u"insert into interno (interno,maquina) values ('IC-2026-0001','OTRA')"_s);
    ejecutar(u"delete from caratula where interno = 'EC-2026-0002'"_s);
    importar([this](FrmImportarOperaciones &p) {
        indicar(p, u"dos.zop"_s);
        atajo(Qt::Key_M);
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(
            registro.mensajes[0].texto,
            u"Se importó 1 operación, falló 1.\r\n\r\nNo se importó la operación IC-2026-0001: La operación "
            "IC-2026-0001 está abierta por la PC OTRA; ciérrela y vuelva a importarla."_s);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 6), (QStringList{u"no se importó"_s, u"importada"_s}));
    });
}

TEST_P(PantallasDeIntercambio, EscapeStopsBehindTheOperationInHand) {
    escribirElArchivo(dos);
    for (const QString &clave : dos) ejecutar(u"delete from caratula where interno = '%1'"_s.arg(clave));
    importar([this](FrmImportarOperaciones &p) {
        indicar(p, u"dos.zop"_s);
        bool pulsada = false;
        ctx->dialogos.atenderEventos = [&pulsada, &p] {
            QCoreApplication::processEvents();
            if (!p.ui.LbAvance->text().isEmpty() && !std::exchange(pulsada, true)) {
                EXPECT_FALSE(p.ui.GrOperaciones->isEnabled());
                tecla(Qt::Key_F11);  // not a second time meanwhile
                tecla(Qt::Key_Escape);
            }
        };
        tecla(Qt::Key_F11);
        ctx->dialogos.atenderEventos = [] {};
        EXPECT_TRUE(pulsada);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"Se importó 1 operación, quedó 1 sin importar."_s);
        EXPECT_EQ(textosDe(p.ui.GrOperaciones, 6), (QStringList{u"importada"_s, u"sin importar"_s}));
        // Asked again, it goes on where it stood.
        tecla(Qt::Key_F11);
        EXPECT_EQ(registro.mensajes.back().texto, u"Se importó 1 operación, se omitió 1."_s);
    });
}

TEST_P(PantallasDeIntercambio, AFileThatIsNoGoodIsOneMessageAndTheFieldIsInHand) {
    QFile f(en("malo.zop"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("PK cualquier cosa") > 0);
    f.close();
    escribirElArchivo(dos);
    importar([this](FrmImportarOperaciones &p) {
        indicar(p, u"dos.zop"_s);
        indicar(p, u"malo.zop"_s);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_EQ(
            registro.mensajes[0].texto,
            u"El archivo %1 no es de operaciones exportadas por este programa; elija otro archivo."_s.arg(
                en("malo.zop")));
        EXPECT_EQ(p.ui.GrOperaciones->rowCount(), 0) << "what was shown was another file's";
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
        tecla(Qt::Key_F11);
        EXPECT_EQ(registro.mensajes.back().texto, u"Indique un archivo y pulse ENTER para leerlo."_s);
        p.elegirArchivo = [this](const QString &carpeta) {
            EXPECT_EQ(carpeta, tienda->carpeta());
            return en("dos.zop");
        };
        tecla(Qt::Key_F6);
        EXPECT_EQ(p.ui.GrOperaciones->rowCount(), 2);
    });
}

TEST_P(PantallasDeIntercambio, TabGoesInTheOrderOfTheWork) {
    escribirElArchivo(dos);
    exportar([](FrmExportarOperaciones &p) {
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Space);
        p.ui.txtInterno->setFocus();
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '),
                  u"txtInterno txtCliente GrOperaciones CmdMarcar TxtArchivo CmdElegir CmdExportar"_s);
    });
    importar([](FrmImportarOperaciones &p) {
        indicar(p, u"dos.zop"_s);
        p.ui.TxtArchivo->setFocus();
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '),
                  u"TxtArchivo CmdElegir GrOperaciones CmdOmitir CmdReemplazar CmdNuevaClave CmdImportar"_s);
    });
}

}  // namespace
