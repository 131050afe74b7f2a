#include "desktop/FrmPrincipal.h"

#include <QLayout>

#include "desktop/MenuP.h"
#include "desktop/fin.h"
#include "frame/context.h"
#include "frame/startup.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "operations/FrmInternoNew.h"

FrmPrincipal::FrmPrincipal()
    : ventana(std::make_unique<QMainWindow>(nullptr, Qt::Window | Qt::CustomizeWindowHint |
                                                         Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                                         Qt::WindowMinimizeButtonHint)) {
    ui.setupUi(ventana.get());
    pantallas::fijarMarco(ventana.get());
    Conectar();
    Form_Load();
}

FrmPrincipal::~FrmPrincipal() {
    pantallas::fijarMarco(nullptr);
}

void FrmPrincipal::Form_Load() {
    AppContext &ctx = Contexto();
    ctx.PcName = NombreDeLaPC();
    ventana->setWindowTitle(TituloDelMarco(ctx.DataManager.obtenerNombreDePerfilSeleccionado(),
                                           ZENDRA_VERSION_MAYOR, ZENDRA_VERSION_MENOR,
                                           ZENDRA_VERSION_REVISION, ctx.PcName));
    ControlarVersionDelStore(ctx);
}

void FrmPrincipal::Conectar() {
    QObject::connect(ui.mnuinternos, &QAction::triggered, ventana.get(), [this] { mnuinternos_Click(); });
    Escuchar(ventana.get(), [this](QEvent *evento) {
        if (evento->type() != QEvent::Close) return false;
        // The window manager's wish is refused; the program's own ends the run.
        if (evento->spontaneous()) {
            evento->ignore();
            return true;
        }
        Form_Unload();
        return false;
    });
}

void FrmPrincipal::Mostrar() {
    MenuP &menu = Pantalla<MenuP>();
    ui.centro->layout()->addWidget(menu.ventana.get());
    ventana->layout()->setSizeConstraint(QLayout::SetFixedSize);
    ventana->show();
    menu.TomarFoco();
}

void FrmPrincipal::Form_Unload() {
    AppContext &ctx = Contexto();
    if (ctx.ConnNcm != nullptr) ctx.ConnNcm->cerrar();
    if (ctx.ConnCatalogos != nullptr) ctx.ConnCatalogos->cerrar();
    TerminarPrograma();
}

void FrmPrincipal::mnuinternos_Click() {
    Pantalla<FrmInternoNew>().Mostrar();
}
