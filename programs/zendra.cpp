// The desktop program.
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "desktop/FrmPerfiles.h"
#include "desktop/FrmPrimerInicio.h"
#include "desktop/FrmPrincipal.h"
#include "desktop/dialogosqt.h"
#include "desktop/fin.h"
#include "desktop/salidasqt.h"
#include "desktop/stockqt.h"
#include "frame/context.h"
#include "frame/lasthandler.h"
#include "frame/startup.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "stock/link.h"

using namespace Qt::StringLiterals;

namespace {

/// The workstation's own locale; Spanish of Argentina where it tells none.
void elegirLocale() {
    const QLocale delSistema = QLocale::system();
    if (delSistema.language() == QLocale::C || delSistema.language() == QLocale::AnyLanguage)
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    else
        QLocale::setDefault(delSistema);
}

int elegirPerfil(const std::vector<PerfilEncontrado> &perfiles) {
    const int elegido = Pantalla<FrmPerfiles>().Elegir(perfiles);
    CerrarPantalla<FrmPerfiles>();
    return elegido;
}

/// Where there is nothing to work on yet: true when there is now.
bool ofrecerStores(const AppContext &ctx) {
    const bool hechos =
        Pantalla<FrmPrimerInicio>().Ofrecer(ctx.DataManager.carpetaDelDefecto(), familiaDePerfiles);
    CerrarPantalla<FrmPrimerInicio>();
    return hechos;
}

int correr(AppContext &ctx) {
    ctx.DataManager.elegir = elegirPerfil;
    if (ctx.DataManager.primerInicio() && !ofrecerStores(ctx)) return EXIT_SUCCESS;
    // Their options are read with the others.
    stock::Enchufar(ctx, PantallasDeStock());
    Arrancar(ctx);
    Pantalla<FrmPrincipal>().Mostrar();
    // Asked while no event loop ran: there is nothing left for one to do.
    return SePidioFin() ? EXIT_SUCCESS : QApplication::exec();
}

}  // namespace

int main(int argc, char **argv) {
    QApplication aplicacion(argc, argv);
    QApplication::setApplicationName(u"Zendra"_s);
    QApplication::setApplicationVersion(TextoDeVersion());
    QApplication::setQuitOnLastWindowClosed(false);
    elegirLocale();
    QTranslator textosDeQt;
    if (textosDeQt.load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&textosDeQt);
    estilo::Aplicar(aplicacion);
    QuitarTextosMudos(&aplicacion);
    AlPedirFin(&aplicacion, [] { TerminarPrograma(); });

    // Owned here: its connections close before the application, and with it the database library, goes.
    AppContext ctx;
    ctx.dialogos = DialogosQt();
    ctx.salidas = SalidasQt();
    ctx.llavero = LlaveroDelSistema();
    fijarContexto(&ctx);
    const int estado = CorrerConUltimaDefensa([&ctx] { return correr(ctx); },
                                              [&ctx](const QString &texto) {
                                                  ctx.dialogos.reloj(false);
                                                  ctx.dialogos.critico(texto);
                                              });
    pantallas::CerrarTodas();
    stock::Desenchufar();
    fijarContexto(nullptr);
    return estado;
}
