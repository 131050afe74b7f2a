// The desktop program.
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <QWindow>

#include "desktop/FrmPerfiles.h"
#include "desktop/FrmPrincipal.h"
#include "desktop/dialogosqt.h"
#include "frame/context.h"
#include "frame/startup.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"

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

int fallar(const AppContext &ctx, const QString &texto) {
    ctx.dialogos.reloj(false);
    ctx.dialogos.critico(texto);
    return EXIT_FAILURE;
}

int correr(AppContext &ctx) {
    ctx.DataManager.elegir = [](const std::vector<PerfilEncontrado> &perfiles) {
        const int elegido = Pantalla<FrmPerfiles>().Elegir(perfiles);
        CerrarPantalla<FrmPerfiles>();
        return elegido;
    };
    try {
        Arrancar(ctx);
        Pantalla<FrmPrincipal>().Mostrar();
    } catch (const Falla &e) {
        return fallar(ctx, e.descripcion);
    } catch (const QString &texto) {
        return fallar(ctx, texto);
    }
    return QApplication::exec();
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
    AppContext &ctx = Contexto();
    ctx.dialogos = DialogosQt();
    const int estado = correr(ctx);
    pantallas::CerrarTodas();
    return estado;
}
