// The check for a newer version: from the main menu, by keys, against servers on the loopback.

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QTextBrowser>

#include "desktop/FrmPrincipal.h"
#include "desktop/MenuP.h"
#include "desktop/dialogosqt.h"
#include "desktop/fin.h"
#include "frame/base/ini.h"
#include "regulatory/frmActualizacion.h"
#include "tests/support/certificados.h"
#include "tests/support/pantallas.h"
#include "tests/support/servidorhttp.h"
#include "tests/support/servidorsmtp.h"

using namespace Qt::StringLiterals;

namespace {

const QString caminoPublicado = u"/sistemas/ZENDRA3/actualizaciones/VersionApp.xml"_s;
const QString versionActual = u"Versión Actual : 3005001"_s;
const QString rayaDeLista(117, u'-');
const QString alDiaEnLista = u"La Versión Actual está Actualizada. No necesita Actualizar."_s;

class Actualizacion : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ConfigFilePath = tienda->carpeta() + "/Prueba.cfg"_L1;
        terminarDeAntes = TerminarPrograma;
        TerminarPrograma = [this] { ++terminados; };
    }
    void TearDown() override {
        EnPantalla::TearDown();
        TerminarPrograma = terminarDeAntes;
    }
    void configurar(const QString &clave, const QString &valor) {
        ASSERT_TRUE(EscribirIni(u"ACTUALIZACION"_s, clave, valor, ctx->ConfigFilePath));
    }
    /// The server says this of the newest version.
    void publicar(const QByteArray &documento) {
        servidor.publicar(caminoPublicado, documento);
        configurar(u"DIRECCION"_s, servidor.direccion());
    }
    /// Opens the check from the menu by its key; `hacer` works on it, and leaves it.
    void abrirConTecla(const std::function<void(frmActualizacion &)> &hacer) {
        auto &marco = Pantalla<FrmPrincipal>();
        marco.Mostrar();
        esperarVentana(marco.ventana.get());
        bool hecho = false;
        conPantallaModal<frmActualizacion>([&](frmActualizacion &f) {
            hacer(f);
            hecho = true;
        });
        atajo(Qt::Key_T);
        hasta([&hecho] { return hecho; });
        EXPECT_FALSE(PantallaAbierta<frmActualizacion>());
        EXPECT_EQ(terminados, 0) << "ESC went on to the menu";
    }
    static QStringList lineas(const frmActualizacion &f) {
        QStringList textos;
        for (int fila = 0; fila < f.ui.ListaEstado->count(); ++fila)
            textos << f.ui.ListaEstado->item(fila)->text();
        return textos;
    }
    static void esperarElFinal(const frmActualizacion &f) {
        hasta([&f] { return f.ui.ListaEstado->count() > 0 && !f.ui.ListaEstado->hasFocus(); });
    }
    /// Opens, waits for the end, asserts that nothing is offered, and leaves by ESC.
    void sinOferta(const QStringList &esperadas, const QString &estado = {}) {
        abrirConTecla([&](frmActualizacion &f) {
            esperarElFinal(f);
            EXPECT_EQ(lineas(f), esperadas);
            EXPECT_EQ(f.ui.lbEstado->text().toStdString(), estado.toStdString());
            EXPECT_FALSE(f.ui.cmdActualizar->isEnabled());
            EXPECT_TRUE(f.ui.cmdSalir->hasFocus());
            EXPECT_EQ(f.ui.lbTeclas->text(), u"ALT+S o ESC  salir"_s);
            tecla(Qt::Key_Escape);
            EXPECT_FALSE(f.ventana->isVisible());
        });
        EXPECT_TRUE(registro.enlaces.empty());
    }
    /// What was said, alone.
    void dicho(const QString &texto, Icono icono = Icono::Exclamacion) const {
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes.front().texto.toStdString(), texto.toStdString());
        EXPECT_EQ(registro.mensajes.front().titulo, QString());
        EXPECT_EQ(registro.mensajes.front().icono, icono);
    }

    ServidorHttp servidor;
    decltype(TerminarPrograma) terminarDeAntes;
    int terminados = 0;
};
EN_AMBOS_STORES(Actualizacion);

}  // namespace

TEST_P(Actualizacion, ANewerVersionIsOfferedAndEnterOpensItsDownload) {
    publicar("3005002</>https://ejemplo.com/zendra-3.5.2.exe");
    abrirConTecla([this](frmActualizacion &f) {
        EXPECT_EQ(f.ventana->windowTitle(), u"Actualización"_s);
        esperarElFinal(f);
        EXPECT_EQ(lineas(f),
                  QStringList({versionActual, rayaDeLista, u" "_s, u"Existe una Actualización Disponible."_s,
                               u"Versión Disponible para Actualizar : 3005002"_s, rayaDeLista,
                               u"¿Procede a DESCARGAR e INSTALAR la Actualización?"_s,
                               u"-> Haga CLIC en el botón ACTUALIZAR si desea hacerlo ahora"_s}));
        EXPECT_EQ(f.ui.lbEstado->text(), u"La descarga está en ejemplo.com."_s);
        EXPECT_EQ(f.ui.lbTeclas->text(),
                  u"ALT+A  abrir la descarga en el navegador   ·   ALT+S o ESC  salir"_s);
        EXPECT_TRUE(f.ui.cmdActualizar->hasFocus());
        tecla(Qt::Key_Return);
        EXPECT_EQ(registro.enlaces, std::vector<QString>{u"https://ejemplo.com/zendra-3.5.2.exe"_s});
        EXPECT_EQ(f.ui.lbEstado->text(), u"La descarga de ejemplo.com se abrió en el navegador."_s);
        EXPECT_TRUE(f.ventana->isVisible());
        atajo(Qt::Key_A);
        EXPECT_EQ(registro.enlaces.size(), 2U);
        tecla(Qt::Key_Tab);
        EXPECT_TRUE(f.ui.cmdSalir->hasFocus());
        tecla(Qt::Key_Return);
        EXPECT_FALSE(f.ventana->isVisible());
    });
    EXPECT_TRUE(registro.mensajes.empty());
    ASSERT_EQ(servidor.pedidos().size(), 1) << "it is asked once";
    EXPECT_EQ(servidor.pedidos().first()[u"path"_s].toString(), caminoPublicado);
}

TEST_P(Actualizacion, PublishedAndInstalledVersionsEqualMakeNoOffer) {
    publicar("3005001</>https://ejemplo.com/zendra.exe");
    sinOferta({versionActual, rayaDeLista, alDiaEnLista});
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Actualizacion, AnOlderPublishedVersionMakesNoOffer) {
    publicar("3005000</>https://ejemplo.com/zendra.exe");
    sinOferta({versionActual, rayaDeLista, alDiaEnLista});
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Actualizacion, TheVersionOfTheInstallationIsTheOneCompared) {
    ctx->ajustesDeLaMaquina.Guardar(u"ZENDRA"_s, u"INSTALACION"_s, u"version"_s, u"3005002"_s);
    publicar("3005002</>https://ejemplo.com/zendra.exe");
    sinOferta({u"Versión Actual : 3005002"_s, rayaDeLista, alDiaEnLista});
}

TEST_P(Actualizacion, ADocumentWithoutItsSeparatorIsToldAtTheSecondPiece) {
    publicar("3005002 https://ejemplo.com/zendra.exe");
    sinOferta({versionActual, rayaDeLista});
    dicho(
        u"El servidor respondió con algo que no es el documento de actualizaciones: verifique la dirección."_s);
}

TEST_P(Actualizacion, AnEmptyDocumentIsTold) {
    publicar("");
    sinOferta({versionActual, rayaDeLista});
    dicho(u"El servidor de actualizaciones respondió con un documento vacío: avise a quien lo administra."_s);
}

TEST_P(Actualizacion, ALinkThatIsNotOfTheWebIsNotOffered) {
    publicar("3005002</>file:///usr/bin/zendra");
    sinOferta({versionActual, rayaDeLista});
    dicho(
        u"La versión 3005002 está publicada sin una dirección http o https de donde descargarla: avise a quien "
        "administra las actualizaciones."_s);
}

TEST_P(Actualizacion, WithoutAConnectionTheMessageAppearsAndTheListShowsTheInstalledVersionOnly) {
    const quint16 puerto = PuertoSinNadie();
    configurar(u"DIRECCION"_s, u"http://127.0.0.1:%1"_s.arg(puerto));
    int alDecirlo = -1;
    ctx->dialogos.mensaje = [&](const Mensaje &m) {
        registro.mensajes.push_back(m);
        alDecirlo = Pantalla<frmActualizacion>().ui.ListaEstado->count();
    };
    sinOferta(
        {versionActual},
        u"El servidor 127.0.0.1 no acepta conexiones en el puerto %1: verifique la dirección."_s.arg(puerto));
    dicho(u"Error opening Internet connection"_s);
    EXPECT_EQ(alDecirlo, 0) << "it is told ahead of the first line";
}

TEST_P(Actualizacion, ADocumentThatIsNotThereIsTold) {
    configurar(u"DIRECCION"_s, servidor.direccion());
    sinOferta(
        {versionActual},
        u"El servidor 127.0.0.1 no tiene el documento %1: verifique la dirección."_s.arg(caminoPublicado));
    dicho(u"Error opening Web page"_s);
}

TEST_P(Actualizacion, WithoutAnAddressItSaysSo) {
    sinOferta({versionActual});
    dicho(
        u"No hay una dirección para buscar actualizaciones: escríbala en DIRECCION, sección [ACTUALIZACION] de %1."_s
            .arg(ctx->ConfigFilePath),
        Icono::Informacion);
}

TEST_P(Actualizacion, ARedirectionLeadsToTheDocument) {
    servidor.publicar(u"/v"_s, "3005001</>https://ejemplo.com/");
    configurar(u"DIRECCION"_s, servidor.direccion(u"/ir/%2Fv"_s));
    sinOferta({versionActual, rayaDeLista, alDiaEnLista});
}

TEST_P(Actualizacion, AnEncryptedServerOfTheOfficesAuthorityIsAsked) {
    const Certificados &c = CertificadosDePrueba();
    ASSERT_EQ(c.error, QString());
    ServidorHttp cifrado(c.bueno, c.clave);
    cifrado.publicar(caminoPublicado, "3005001</>https://ejemplo.com/");
    configurar(u"DIRECCION"_s, cifrado.direccion());
    configurar(u"CERTIFICADOS"_s, c.autoridad);
    sinOferta({versionActual, rayaDeLista, alDiaEnLista});
    EXPECT_TRUE(registro.mensajes.empty());
    configurar(u"CERTIFICADOS"_s, QString());
    sinOferta(
        {versionActual},
        u"El certificado del servidor 127.0.0.1 no es de una autoridad conocida: si el servidor es de su oficina, "
        "indique el archivo de su autoridad en CERTIFICADOS."_s);
    dicho(u"Error opening Internet connection"_s);
}

TEST_P(Actualizacion, WhileAServerIsSlowTheWindowGoesOnAndEscapeCancels) {
    configurar(u"DIRECCION"_s, servidor.direccion(u"/calla"_s));
    int ticks = 0;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, &reloj, [&ticks] { ++ticks; });
    reloj.start(5);
    abrirConTecla([&](frmActualizacion &f) {
        hasta([&f] { return f.ui.lbEstado->text() == u"Buscando en 127.0.0.1..."_s; });
        const int antes = ticks;
        hasta([&] { return ticks > antes + 10; });
        EXPECT_EQ(lineas(f), QStringList());
        EXPECT_EQ(f.ui.lbTeclas->text(), u"ESC  cancelar la búsqueda   ·   ALT+S  salir"_s);
        EXPECT_TRUE(f.ui.ListaEstado->hasFocus());
        tecla(Qt::Key_Return);
        EXPECT_TRUE(f.ventana->isVisible());
        tecla(Qt::Key_Escape);
        EXPECT_TRUE(f.ventana->isVisible());
        EXPECT_EQ(lineas(f), QStringList({versionActual}));
        EXPECT_EQ(f.ui.lbEstado->text(), u"La búsqueda se canceló."_s);
        EXPECT_EQ(f.ui.lbTeclas->text(), u"ALT+S o ESC  salir"_s);
        EXPECT_FALSE(f.ui.cmdActualizar->isEnabled());
        EXPECT_TRUE(f.ui.cmdSalir->hasFocus());
        tecla(Qt::Key_Escape);
        EXPECT_FALSE(f.ventana->isVisible());
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Actualizacion, LeavingWhileItAsksEndsTheQuestion) {
    configurar(u"DIRECCION"_s, servidor.direccion(u"/calla"_s));
    abrirConTecla([&](frmActualizacion &f) {
        hasta([&f] { return !f.ui.lbEstado->text().isEmpty(); });
        atajo(Qt::Key_S);
        EXPECT_FALSE(f.ventana->isVisible());
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Actualizacion, ABrowserThatDoesNotOpenIsToldWithTheLink) {
    registro.hayPrograma = false;
    publicar("3005002</>https://ejemplo.com/zendra.exe");
    abrirConTecla([&](frmActualizacion &f) {
        esperarElFinal(f);
        tecla(Qt::Key_Space);
        EXPECT_EQ(f.ui.lbEstado->text(), u"La descarga está en ejemplo.com."_s);
        tecla(Qt::Key_Escape);
    });
    dicho(
        u"No se pudo abrir el navegador: abra https://ejemplo.com/zendra.exe en otro programa para descargar la "
        "actualización."_s);
}

TEST_P(Actualizacion, TheMenusButtonIsReachedByTabAndPressedByEnter) {
    auto &marco = Pantalla<FrmPrincipal>();
    marco.Mostrar();
    esperarVentana(marco.ventana.get());
    const auto &ui = Pantalla<MenuP>().ui;
    EXPECT_TRUE(ui.GrdMenuMain->hasFocus());
    tecla(Qt::Key_Tab);
    EXPECT_TRUE(ui.GridFormularios->hasFocus());
    tecla(Qt::Key_Tab);
    EXPECT_TRUE(ui.CmdStock->hasFocus());
    tecla(Qt::Key_Tab);
    ASSERT_TRUE(ui.comprobarActualizacion->hasFocus());
    EXPECT_TRUE(ui.lbTeclas->text().contains(u"ALT+T  comprobar actualización"_s));
    bool abierta = false;
    conPantallaModal<frmActualizacion>([&](frmActualizacion &f) {
        abierta = true;
        esperarElFinal(f);
        tecla(Qt::Key_Escape);
    });
    tecla(Qt::Key_Return);
    EXPECT_TRUE(abierta);
    esperarVentana(marco.ventana.get());
    EXPECT_TRUE(ui.comprobarActualizacion->hasFocus());
}

namespace {

/// A browser that only notes where it was sent.
class NavegadorDePrueba : public QTextBrowser {
 public:
    QList<QUrl> vistos;

 private:
    void doSetSource(const QUrl &url, QTextDocument::ResourceType /*tipo*/) override { vistos << url; }
};

}  // namespace

TEST_P(Actualizacion, TheSystemsBrowserIsGivenWebAddressesOnly) {
    NavegadorDePrueba navegador;
    for (const char *esquema : {"http", "https", "file", "ftp", "javascript"})
        QDesktopServices::setUrlHandler(QLatin1String(esquema), &navegador, "setSource");
    const auto abrirEnlace = DialogosQt().abrirEnlace;
    for (const QString &mala : {u"file:///usr/bin/zendra"_s, u"ftp://ejemplo.com/z"_s,
                                u"javascript:alert(1)"_s, u"ejemplo.com"_s, u"https://"_s, QString()})
        EXPECT_FALSE(abrirEnlace(mala)) << mala.toStdString();
    EXPECT_TRUE(abrirEnlace(u"http://ejemplo.com/z"_s));
    EXPECT_TRUE(abrirEnlace(u"https://ejemplo.com/z?a=b%20c"_s));
    EXPECT_EQ(navegador.vistos,
              QList<QUrl>({QUrl(u"http://ejemplo.com/z"_s), QUrl(u"https://ejemplo.com/z?a=b%20c"_s)}));
    for (const char *esquema : {"http", "https", "file", "ftp", "javascript"})
        QDesktopServices::unsetUrlHandler(QLatin1String(esquema));
}
