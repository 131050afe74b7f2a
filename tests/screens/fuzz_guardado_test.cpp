// Texts that break what pastes them, pasted into the pages that an operation is made of, and saved: what the
// field showed is what the store holds, or a message told why not and the page can still be saved.

#include <gtest/gtest.h>

#include <QClipboard>

#include "forms/FrmHojaValoracion.h"
#include "forms/valuationfields.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/ui/campos.h"
#include "liquidation/itemfields.h"
#include "tests/screens/caratula_pantalla.h"
#include "tests/screens/catalogos_pantalla.h"
#include "tests/screens/items_pantalla.h"
#include "tests/screens/subitems_pantalla.h"
#include "tests/support/huella.h"
#include "tests/support/textosfeos.h"

using namespace Qt::StringLiterals;

namespace {

/// A field and the column that keeps it.
struct CampoPegado {
    QPointer<QWidget> campo;
    QString columna;
};

/// What a page does for the test.
struct PaginaPegada {
    const char *nombre;
    std::vector<CampoPegado> campos;
    std::function<void()> guardar;
    std::function<QString(const QString &columna)> leer;
};

template <class Base>
class ConPegado : public Base {
 protected:
    /// Pastes into every field and saves. What was refused is put back, and then it has to be saved.
    void pegarYGuardar(const PaginaPegada &p) {
        QStringList antes;
        QStringList mostrados;
        QString pegado = QLatin1String(p.nombre);
        for (const CampoPegado &c : p.campos) {
            ASSERT_NE(c.campo, nullptr) << p.nombre << ' ' << c.columna.toStdString();
            const QString texto = ronda.siguiente();
            antes << campos::TextoDe(c.campo);
            pegado += u" | "_s + c.columna + u" <- "_s + Visto(texto);
            c.campo->setFocus();
            QApplication::clipboard()->setText(texto);
            tecla(Qt::Key_A, Qt::ControlModifier);
            tecla(Qt::Key_V, Qt::ControlModifier);
            mostrados << campos::TextoDe(c.campo);
        }
        this->registro.mensajes.clear();
        p.guardar();
        if (this->registro.mensajes.empty()) {
            for (qsizetype n = 0; n < mostrados.size(); ++n) {
                const QString &columna = p.campos[static_cast<std::size_t>(n)].columna;
                const QString guardado = p.leer(columna);
                EXPECT_TRUE(esLoMismo(mostrados.at(n), guardado))
                    << pegado.toStdString() << "\n  " << columna.toStdString() << " shown "
                    << Visto(mostrados.at(n)).toStdString() << " kept " << Visto(guardado).toStdString();
            }
            ++guardados;
            return;
        }
        ++rechazados;
        for (const Mensaje &m : this->registro.mensajes)
            EXPECT_FALSE(TienePalabrasDeMotor(m.texto))
                << pegado.toStdString() << ": " << m.texto.left(300).toStdString();
        this->registro.mensajes.clear();
        for (std::size_t n = 0; n < p.campos.size(); ++n) {
            ASSERT_NE(p.campos[n].campo, nullptr)
                << "the page went with what was refused: " << pegado.toStdString();
            campos::PonerTexto(p.campos[n].campo, antes.at(static_cast<qsizetype>(n)));
        }
        p.guardar();
        EXPECT_TRUE(this->registro.mensajes.empty())
            << pegado.toStdString() << ": " << this->registro.mensajes.back().texto.toStdString();
    }

    /// A number may be spelled otherwise; quotes are left out where a key could be meant, and what a document
    /// has in one line has no breaks.
    static bool esLoMismo(const QString &mostrado, const QString &guardado) {
        const auto enUnaLinea = [](QString texto) { return texto.replace(u'\n', u' ').trimmed(); };
        const QString visto = enUnaLinea(mostrado);
        const QString hay = enUnaLinea(guardado);
        if (visto == hay || SinComillas(visto).trimmed() == hay || visto.toUpper() == hay) return true;
        return (visto.isEmpty() || numeros::esNumerico(visto)) && numeros::esNumerico(hay) &&
               numeros::iguales(numeros::aNumero(visto), numeros::aNumero(hay), 2);
    }

    /// The columns of one row.
    QString columnaDe(const QString &columna, const char *tablaYCondicion,
                      const QString &entidad = u"INTERNOS"_s) {
        QString hay =
            this->valor("select "_L1 + columna + " from "_L1 + QString::fromUtf8(tablaYCondicion), entidad);
        return hay == u"<null>"_s ? QString() : hay;
    }

    Azar azar;
    Ronda ronda{azar};
    int guardados = 0, rechazados = 0;
};

// Items

class PegadoEnItems : public ConPegado<EnItems> {};
EN_AMBOS_STORES(PegadoEnItems);

TEST_P(PegadoEnItems, AnItemKeepsWhatItShowsOrSaysWhyNotAndNoOtherOperationChanges) {
    const SinContar sin{{importacion}, {}};
    const auto antes = Huella(*ctx, sin);
    auto &items = mostrarItem(1);
    for (int hoja = 0; hoja < items.ui.sTab->count(); ++hoja) {
        for (const CampoDeItem &c : CamposDeItem()) {
            auto *campo = items.ventana->findChild<QLineEdit *>(QLatin1String(c.control));
            if (campo == nullptr) continue;  // a choice, where nothing is pasted
            items.ui.sTab->setCurrentIndex(hoja);
            if (!campo->isVisible() || !campo->isEnabled() || campo->isReadOnly()) continue;
            for (int vez = 0; vez < 3; ++vez)
                pegarYGuardar({c.control,
                               {{campo, QLatin1String(c.columna)}},
                               [] { tecla(Qt::Key_F11); },
                               [this](const QString &columna) {
                                   return columnaDe(columna,
                                                    "item where interno = 'IC-2026-0001' and id = 1");
                               }});
        }
    }
    constexpr int camposDeItem = 17;
    EXPECT_GE(guardados + rechazados, 3 * camposDeItem);
    EXPECT_GE(guardados, camposDeItem);
    EXPECT_GE(rechazados, camposDeItem / 2) << "numbers are no texts";
    tecla(Qt::Key_Escape);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

// Lines

class PegadoEnLineas : public ConPegado<EnLineas> {};
EN_AMBOS_STORES(PegadoEnLineas);

TEST_P(PegadoEnLineas, ALineKeepsWhatItShowsOrSaysWhyNotAndNoOtherOperationChanges) {
    const SinContar sin{{u"OP 1"_s}, {}};
    const auto antes = Huella(*ctx, sin);
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    for (int vez = 0; vez < 10; ++vez) {
        teclearBomba(pantalla);
        const int habia = cuantas();
        pegarYGuardar({"FrmSubItems",
                       {{ui.TxtDescArticulos, u"descripcion"_s},
                        {ui.txtDescripcionMaria, u"descripcion_maria"_s},
                        {ui.txtOtros, u"otros"_s},
                        {ui.TxtFiller, u"itfiller"_s}},
                       [] { tecla(Qt::Key_F11); },
                       [this](const QString &columna) {
                           return columnaDe(
                               columna,
                               "subitems where interno = 'OP 1' and id = (select max(id) from subitems "
                               "where interno = 'OP 1')");
                       }});
        EXPECT_EQ(cuantas(), habia + 1);
    }
    EXPECT_GE(guardados, 5);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

// Articles

class PegadoEnCatalogos : public ConPegado<EnCatalogos> {};
EN_AMBOS_STORES(PegadoEnCatalogos);

TEST_P(PegadoEnCatalogos, AnArticleKeepsWhatItShowsOrSaysWhyNotAndNoOtherRowChanges) {
    const SinContar sin{{}, {u"catarticulos"_s}};
    const auto antes = Huella(*ctx, sin);
    auto &p = catalogos();
    const QString otros = enCatalogos(u"select * from catarticulos order by idcatalogo,idarticulo"_s);
    for (int vez = 0; vez < 10; ++vez) {
        const QString codigo = u"FZ-%1"_s.arg(vez);
        tecla(Qt::Key_Insert);
        teclear(p.ui.txtIdArticulo, codigo);
        teclearBomba(p);
        const QByteArray fila = u"catarticulos where idarticulo = '%1'"_s.arg(codigo).toUtf8();
        pegarYGuardar({"FrmCatArticulos",
                       {{p.ui.TxtDescArticulos, u"descripcion"_s}, {p.ui.txtOtros, u"otros"_s}},
                       [] { atajo(Qt::Key_G); },
                       [this, &fila](const QString &columna) {
                           return columnaDe(columna, fila.constData(), u"CATALOGOS"_s);
                       }});
        ejecutar(u"delete from catarticulos where idarticulo = '%1'"_s.arg(codigo), u"CATALOGOS"_s);
    }
    EXPECT_GE(guardados, 5);
    EXPECT_EQ(enCatalogos(u"select * from catarticulos order by idcatalogo,idarticulo"_s), otros);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

// Header

class PegadoEnCaratula : public ConPegado<PantallaDeCaratula> {};
EN_AMBOS_STORES(PegadoEnCaratula);

TEST_P(PegadoEnCaratula, AHeaderKeepsWhatItShowsOrSaysWhyNotAndNoOtherOperationChanges) {
    const SinContar sin{{importacion}, {}};
    const auto antes = Huella(*ctx, sin);
    const std::pair<const char *, const char *> textos[] = {{"txtDepAlm", "factura5"},
                                                            {"TxtautdestSusp", "autorizdestsuspensiva"},
                                                            {"TxtPlazoaut", "plazoautorizacion"},
                                                            {"txtDATOCOMPRADOR", "datocomprador"},
                                                            {"txtNROTRANSINTER", "nrotransinter"},
                                                            {"txtAnexo_Vendedor", "anexo_vendedor"}};
    for (int vez = 0; vez < 10; ++vez) {
        auto &pantalla = mostrar();
        PaginaPegada pagina{"FrmCaratula",
                            {},
                            [] { tecla(Qt::Key_Escape); },
                            [this](const QString &columna) {
                                return columnaDe(columna, "caratula where interno = 'IC-2026-0001'");
                            }};
        for (const auto &[control, columna] : textos) {
            auto *campo = pantalla.ventana->findChild<QLineEdit *>(QLatin1String(control));
            ASSERT_NE(campo, nullptr) << control;
            if (campo->isVisible() && campo->isEnabled())
                pagina.campos.push_back({campo, QLatin1String(columna)});
        }
        ASSERT_GE(pagina.campos.size(), 2U);
        pegarYGuardar(pagina);
        EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    }
    EXPECT_GE(guardados, 5);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

// Valuation

class PegadoEnHoja : public ConPegado<EnPantalla> {};
EN_AMBOS_STORES(PegadoEnHoja);

TEST_P(PegadoEnHoja, ASheetKeepsWhatItShowsOrSaysWhyNotAndNoOtherOperationChanges) {
    const SinContar sin{{importacion}, {}};
    const auto antes = Huella(*ctx, sin);
    for (int vez = 0; vez < 10; ++vez) {
        conPantallaModal<FrmHojaValoracion>([this](FrmHojaValoracion &p) {
            PaginaPegada pagina{"FrmHojaValoracion",
                                {},
                                [] { tecla(Qt::Key_Escape); },
                                [this](const QString &columna) {
                                    return columnaDe(columna, "hval where interno = 'IC-2026-0001'",
                                                     u"SYSTABLAS"_s);
                                }};
            for (const char *columna : {"contrato", "formadepago"})
                pagina.campos.push_back({p.Control(QLatin1String(columna)), QLatin1String(columna)});
            pegarYGuardar(pagina);
            if (PantallaAbierta<FrmHojaValoracion>() && p.ventana->isVisible()) tecla(Qt::Key_Escape);
        });
        AbrirHojaValoracion(importacion);
    }
    EXPECT_GE(guardados, 5);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

}  // namespace
