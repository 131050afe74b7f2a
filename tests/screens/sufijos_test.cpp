// Suffixes asked for through the real windows, by keyboard: the list of options, the box of free values, and
// the screen that shows them.

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <deque>

#include "frame/entities.h"
#include "frame/ui/Pantalla.h"
#include "subitems/FrmCargaSufijos.h"
#include "subitems/FrmSufijos.h"
#include "subitems/suffixes.h"
#include "subitems/suffixtext.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::ncm;
/// The free family AB of the chapter alone.
const QString llave = u"8204.11.00.111U"_s;

class CargaDeSufijos : public EnPantalla {
 protected:
    using Paso = std::function<void(QWidget *)>;

    /// Lists and boxes are windows; messages and questions go to the record.
    void SetUp() override {
        EnPantalla::SetUp();
        const Dialogos anotados = ctx->dialogos;
        conDialogosDeVerdad();
        ctx->dialogos.mensaje = anotados.mensaje;
        ctx->dialogos.preguntar = anotados.preguntar;
    }
    /// Runs the engine; each window that it opens takes the next of `pasos`.
    std::string validar(const QString &posicion, const QString &actual, ModoDeSufijos modo,
                        std::deque<Paso> pasos, const char *articulo = "", const char *descripcion = "") {
        pasos_ = std::move(pasos);
        siguiente();
        const QString texto = ValidarSufijos(*ctx, posicion, actual, modo, QString::fromUtf8(articulo),
                                             QString::fromUtf8(descripcion));
        EXPECT_TRUE(pasos_.empty()) << pasos_.size() << " windows did not come";
        return texto.toStdString();
    }
    std::string construir(const QString &posicion, std::deque<Paso> pasos) {
        return validar(posicion, {}, ModoDeSufijos::Construir, std::move(pasos));
    }
    static Paso teclear(const char *texto) {
        return [texto](QWidget *modal) {
            ASSERT_NE(qobject_cast<QInputDialog *>(modal), nullptr);
            escribir(QString::fromUtf8(texto));
            tecla(Qt::Key_Return);
        };
    }
    static Paso dejarCaja() {
        return [](QWidget *modal) {
            ASSERT_NE(qobject_cast<QInputDialog *>(modal), nullptr);
            tecla(Qt::Key_Escape);
        };
    }
    static Paso enLista(const std::function<void(FrmCargaSufijos &)> &hacer) {
        return [hacer](QWidget *modal) {
            auto &lista = Pantalla<FrmCargaSufijos>();
            ASSERT_EQ(modal, lista.ventana.get());
            hacer(lista);
        };
    }
    /// The option `fila` rows below the first.
    static Paso opcion(int fila) {
        return enLista([fila](FrmCargaSufijos &) {
            for (int n = 0; n < fila; ++n) tecla(Qt::Key_Down);
            tecla(Qt::Key_Return);
        });
    }
    std::string mensajes() const {
        QStringList textos;
        for (const Mensaje &m : registro.mensajes) textos << m.texto;
        return textos.join(u'|').toStdString();
    }

 private:
    void siguiente() {
        if (pasos_.empty()) return;
        conVentanaModal([this](QWidget *modal) {
            const Paso hacer = pasos_.front();
            pasos_.pop_front();
            esperarVentana(modal);
            hacer(modal);
            siguiente();
        });
    }
    std::deque<Paso> pasos_;
};

TEST_P(CargaDeSufijos, TheOptionsOfACodedFamilyStandUnderNone) {
    EXPECT_EQ(construir(motor, {enLista([](FrmCargaSufijos &lista) {
                                    EXPECT_EQ(lista.ventana->windowTitle(), u"SUFIJO AA"_s);
                                    ASSERT_EQ(lista.ui.LstOpcion->count(), 3);
                                    EXPECT_EQ(lista.ui.LstOpcion->item(0)->text(),
                                              u"AA00 - Ninguna opción"_s);
                                    EXPECT_TRUE(lista.ui.LstOpcion->item(1)->text().startsWith("AA01 - "_L1));
                                    EXPECT_EQ(QApplication::focusWidget(), lista.ui.LstOpcion);
                                    EXPECT_EQ(lista.ui.LstOpcion->currentRow(), 0);
                                    tecla(Qt::Key_End);
                                    EXPECT_EQ(lista.ui.LstOpcion->currentRow(), 2);
                                    tecla(Qt::Key_Home);
                                    escribir(u"AA01"_s);
                                    EXPECT_EQ(lista.ui.LstOpcion->currentRow(), 1) << "typing finds the row";
                                    tecla(Qt::Key_Return);
                                }),
                                teclear("bosch"), opcion(0)}),
              "AA01-AB(BOSCH)-HA00-");
    EXPECT_EQ(mensajes(), "");
}

TEST_P(CargaDeSufijos, ADoubleClickTakesTheOption) {
    EXPECT_EQ(
        construir(motor, {enLista([](FrmCargaSufijos &lista) {
                              const QPoint punto =
                                  lista.ui.LstOpcion->visualItemRect(lista.ui.LstOpcion->item(2)).center();
                              QWidget *hoja = lista.ui.LstOpcion->viewport();
                              QTest::mouseClick(hoja, Qt::LeftButton, Qt::NoModifier, punto);
                              QTest::mouseDClick(hoja, Qt::LeftButton, Qt::NoModifier, punto);
                          }),
                          teclear("x"), opcion(1)}),
        "AA02-AB(X)-HA01-");
}

TEST_P(CargaDeSufijos, EscapeOnTheListStopsTheWholeProcess) {
    EXPECT_EQ(construir(motor, {enLista([](FrmCargaSufijos &) { tecla(Qt::Key_Escape); })}), "");
    EXPECT_EQ(mensajes(), "Carga de SUFIJOS cancelada");
}

TEST_P(CargaDeSufijos, AListClosedWithoutAnAnswerIsAnError) {
    EXPECT_EQ(construir(motor, {enLista([](FrmCargaSufijos &lista) { lista.ventana->close(); })}), "");
    EXPECT_EQ(mensajes(), "Error en generar sufijos");
}

TEST_P(CargaDeSufijos, APositionWithoutSuffixRowsNeedsNoneAndSaysSo) {
    ejecutar(u"delete from sufidos"_s, ncm);
    const std::string texto = construir(motor, {});
    EXPECT_EQ(texto, "SIN SUFIJOS");
    EXPECT_EQ(mensajes(), "No se encontro Sufijo en el nomenclador");
    EXPECT_TRUE(SufijosAceptados(QString::fromStdString(texto))) << "a line may hold it";
}

TEST_P(CargaDeSufijos, TheSignsOfTheTextItselfBecomeBlanksInAFreeValue) {
    EXPECT_EQ(construir(llave, {teclear("ABC-(1)")}), "AB(ABC 1)-");
}

TEST_P(CargaDeSufijos, TheBoxTellsFamilyAndDetailAndLimitsTheText) {
    ejecutar(
        u"insert into sufidos (sim,sufijo,detalle) values "
        "('8204.  .  .   ','AS',' Otros datos '),('8204.  .  .   ','ZB','Peso')"_s,
        ncm);
    const auto caja = [](const char *titulo, const char *rotulo, int maximo, const char *inicial) -> Paso {
        return [=](QWidget *modal) {
            EXPECT_EQ(modal->windowTitle(), QString::fromUtf8(titulo));
            auto *entrada = qobject_cast<QInputDialog *>(modal);
            ASSERT_NE(entrada, nullptr);
            EXPECT_EQ(entrada->labelText(), QString::fromUtf8(rotulo));
            auto *campo = modal->findChild<QLineEdit *>();
            EXPECT_EQ(campo->maxLength(), maximo);
            EXPECT_EQ(campo->text(), QString::fromUtf8(inicial));
            EXPECT_EQ(campo->selectedText(), campo->text());
            escribir(u"7"_s);
            tecla(Qt::Key_Return);
        };
    };
    EXPECT_EQ(
        validar(llave, {}, ModoDeSufijos::Construir,
                {caja("Marca y modelo", "SUFIJO AB", 20, "ART 1"),
                 caja("Otros datos", "SUFIJO AS", 40, "LLAVE FIJA"), caja("Peso", "SUFIJO ZB", 6, "LLAVE ")},
                "ART 1", "LLAVE FIJA"),
        "AB(7)-AS(7)-ZB(000007)-");
}

TEST_P(CargaDeSufijos, ANumberIsCutToSixDigitsAndFilledWithZeros) {
    ejecutar(u"update sufidos set sufijo = 'ZB' where sim = '82  .  .  .   '"_s, ncm);
    EXPECT_EQ(construir(llave, {teclear("1234567")}), "ZB(123456)-");
    EXPECT_EQ(construir(llave, {teclear("12")}), "ZB(000012)-");
}

TEST_P(CargaDeSufijos, AValueThatIsNoNumberIsAskedAgain) {
    ejecutar(u"update sufidos set sufijo = 'ZB' where sim = '82  .  .  .   '"_s, ncm);
    EXPECT_EQ(construir(llave, {teclear("doce"), teclear("12")}), "ZB(000012)-");
    EXPECT_EQ(mensajes(), "Debe Ingresar un Valor Númerico");
}

TEST_P(CargaDeSufijos, AnEmptyAnswerAsksWhetherToLeave) {
    registro.respuestas = {false, true};
    EXPECT_EQ(construir(llave, {dejarCaja(), teclear("")}), "") << "No asks again, Yes leaves";
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Desea cancelar la operación"_s);
    registro.respuestas = {false};
    EXPECT_EQ(construir(llave, {dejarCaja(), teclear("acme")}), "AB(ACME)-");
    EXPECT_EQ(mensajes(), "");
}

TEST_P(CargaDeSufijos, AFinishedTextAsksNothingAgain) {
    const QString texto = u"AA01-AB(BOSCH)-HA02-"_s;
    EXPECT_EQ(validar(motor, texto, ModoDeSufijos::Reconfirmar, {}), texto.toStdString());
    EXPECT_EQ(mensajes(), "");
}

TEST_P(CargaDeSufijos, AChapterFamilyIsAskedForEveryPositionOfTheChapter) {
    ejecutar(u"delete from sufidos where sim <> '84  .  .  .   '"_s, ncm);
    for (const char *posicion : {"8407.34.90.100J", "8409.91.12.100G", "8484.10.00.000Z"})
        EXPECT_EQ(construir(QString::fromUtf8(posicion), {opcion(1), teclear("acme")}), "AA01-AB(ACME)-")
            << posicion;
}

TEST_P(CargaDeSufijos, BuildingFromTheBeginningKeepsTheTokensThatFitWithoutComparingThem) {
    const QString incompleto = u"AA02-AB(BOSCH)-"_s;
    EXPECT_EQ(validar(motor, incompleto, ModoDeSufijos::Construir, {opcion(2)}), "AA02-AB(BOSCH)-HA02-");
    EXPECT_EQ(mensajes(), "") << "nothing is said of differences";
    EXPECT_EQ(validar(motor, incompleto, ModoDeSufijos::Reconfirmar, {opcion(2)}), "AA02-AB(BOSCH)-HA02-");
    EXPECT_EQ(mensajes(), "Se encontro diferencias entre los Sufijos de Subitem y el nomenclador.");
}

TEST_P(CargaDeSufijos, AnUnknownPositionOpensNoWindow) {
    EXPECT_EQ(construir(u"9999.99.99.999Z"_s, {}), "##ERRORNCM##");
    EXPECT_EQ(mensajes(), "No existe la posicion 9999.99.99.999Z en el nomenclador");
}

class PantallaDeSufijos : public EnPantalla {
 protected:
    static void ver(const char *posicion, const char *texto, const std::function<void(FrmSufijos &)> &hacer) {
        bool vista = false;
        conVentanaModal([&](QWidget *modal) {
            vista = true;
            auto &pantalla = Pantalla<FrmSufijos>();
            ASSERT_EQ(modal, pantalla.ventana.get());
            esperarVentana(modal);
            hacer(pantalla);
            tecla(Qt::Key_Escape);
            EXPECT_FALSE(modal->isVisible()) << "escape closes it";
        });
        VerSufijos(QString::fromUtf8(posicion), QString::fromUtf8(texto));
        EXPECT_TRUE(vista);
        EXPECT_FALSE(PantallaAbierta<FrmSufijos>());
    }
    static std::string primeraColumna(const QTableWidget *grilla) {
        QStringList textos;
        for (int fila = 0; fila < grilla->rowCount(); ++fila) textos << grilla->item(fila, 0)->text();
        return textos.join(u' ').toStdString();
    }
};

TEST_P(PantallaDeSufijos, TellsTheCatalogueTheLineAndTheLicence) {
    ejecutar(u"update ncm set [059] = '*' where [001] = '8708.30.19'"_s, ncm);
    ver("8708.30.19.110T", "KA01-AI(X1)-", [](FrmSufijos &p) {
        EXPECT_EQ(p.ui.LbPosicion->text(), u"8708.30.19.110T"_s);
        EXPECT_EQ(primeraColumna(p.ui.Grid), "KA01 KA02 AI LA01 LA02");
        EXPECT_EQ(primeraColumna(p.ui.Grid2), "KA01 AI(X1)");
        EXPECT_FALSE(p.ui.Grid2->item(0, 1)->text().isEmpty());
        EXPECT_EQ(p.ui.StB->text(), u"Familias pedidas: 3. Faltan sufijos"_s);
        EXPECT_EQ(p.ui.txtLNAPINcm->text(), u"La posición lleva la marca de licencia"_s);
        EXPECT_EQ(p.ui.txtLNAPI->toPlainText().toStdString(),
                  "(1) LNA AUTOPARTES\nNorma: RES.523-E/17\n---------------\nAclaraciones:\n---------------\n"
                  "Aclaraciones para (1)\n* Exceptuado cuando el importador es fabricante\n"
                  "* La licencia vale 90 días desde su aprobación\n");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.Grid);
    });
}

TEST_P(PantallaDeSufijos, APositionWithoutLicenceOrLineSaysSo) {
    ejecutar(u"update ncm set [059] = '' where [001] = '8409.91.12'"_s, ncm);
    ver("8409.91.12.100G", "", [](FrmSufijos &p) {
        EXPECT_EQ(p.ui.Grid2->rowCount(), 0);
        EXPECT_EQ(p.ui.txtLNAPINcm->text(), u"La posición no lleva la marca de licencia"_s);
        EXPECT_EQ(p.ui.txtLNAPI->toPlainText().toStdString(), "SIN DATOS\nNorma: NO POSEE\n");
    });
}

EN_AMBOS_STORES(CargaDeSufijos);
EN_AMBOS_STORES(PantallaDeSufijos);

}  // namespace
