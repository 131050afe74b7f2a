#include "forms/FrmCertificados.h"

#include <QAction>
#include <QHeaderView>
#include <algorithm>

#include "forms/FrmCertificado.h"
#include "forms/certificatelist.h"
#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeCertificados {
    NumeroDeCertificado,
    FechaDeCertificado,
    PaisDeCertificado,
    ExportadorDeCertificado,
    VencimientoDeCertificado,
    LineasDeCertificado,
    AvisoDeCertificado
};

}  // namespace

FrmCertificados::FrmCertificados() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ArmarMenu();
    Conectar();
}

void FrmCertificados::ArmarMenu() {
    ui.TbMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto boton = [this](Dibujo dibujo, const QString &texto, const QString &ayuda,
                              void (FrmCertificados::*hacer)()) {
        QAction *accion = ui.TbMenu->addAction(IconoDe(dibujo), texto);
        accion->setToolTip(ayuda);
        QObject::connect(accion, &QAction::triggered, ventana.get(), [this, hacer] { (this->*hacer)(); });
    };
    boton(Dibujo::Crear, u"Agregar"_s, u"Agregar un certificado (Insert)"_s, &FrmCertificados::Agregar);
    boton(Dibujo::Formulario, u"Modificar"_s, u"Modificar el certificado elegido (F6)"_s,
          &FrmCertificados::Modificar);
    boton(Dibujo::Borrar, u"Eliminar"_s, u"Eliminar el certificado elegido (Supr)"_s,
          &FrmCertificados::Eliminar);
    boton(Dibujo::Imprimir, u"Listar"_s, u"Listado de los certificados (F12)"_s, &FrmCertificados::Listar);
}

void FrmCertificados::Conectar() {
    lista_.Preparar(
        ui.Lst, {u"Número"_s, u"Fecha"_s, u"País"_s, u"Exportador"_s, u"Vence"_s, u"Líneas"_s, u"Aviso"_s},
        {{ui.txtBuscar, NumeroDeCertificado}},
        {[this] { Modificar(); }, [this] { Modificar(); }, [this] { Agregar(); }, [this] { Eliminar(); }});
    const int letra = ui.Lst->fontMetrics().averageCharWidth();
    for (const auto &[columna, letras] : {std::pair{NumeroDeCertificado, 24},
                                          {FechaDeCertificado, 16},
                                          {PaisDeCertificado, 10},
                                          {VencimientoDeCertificado, 16},
                                          {LineasDeCertificado, 12},
                                          {AvisoDeCertificado, 22}})
        ui.Lst->setColumnWidth(columna, letra * letras);
    ui.Lst->horizontalHeader()->setSectionResizeMode(ExportadorDeCertificado, QHeaderView::Stretch);
    EscucharTeclas(ventana.get(), [this](const QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

bool FrmCertificados::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F12) return false;
    Listar();
    return true;
}

void FrmCertificados::Mostrar(const QString &interno) {
    legajo_.interno = interno;
    ventana->setWindowTitle(u"Certificados de origen - Operación "_s + interno);
    CargarLst();
    ui.txtBuscar->setFocus();
    ventana->exec();
}

void FrmCertificados::CargarLst(qint64 id) {
    AppContext &ctx = Contexto();
    int actual = std::max(0, lista_.Actual());
    Manejar(ctx, [&] { legajo_ = certificados::Leer(ctx, legajo_.interno); });
    const auto dia = [](const std::optional<QDate> &d) {
        return d ? d->toString(u"dd/MM/yyyy"_s) : QString();
    };
    std::vector<QStringList> filas;
    for (const certificados::Certificado &c : legajo_.certificados) {
        if (c.id == id) actual = static_cast<int>(filas.size());
        filas.push_back({c.numero, dia(c.fecha), c.idpais, c.exportador, dia(c.vencimiento),
                         QString::number(legajo_.lineasDe(c.numero).size()),
                         certificados::Aviso(legajo_, c)});
    }
    lista_.Cargar(std::move(filas), actual);
    const QStringList sueltos = legajo_.numerosSueltos();
    ui.LbSueltos->setVisible(!sueltos.isEmpty());
    ui.LbSueltos->setText(u"Números en las líneas sin su certificado (INSERT los ofrece): "_s +
                          sueltos.join(", "_L1));
}

const certificados::Certificado *FrmCertificados::Elegido() const {
    const int fila = lista_.Actual();
    return fila < 0 ? nullptr : &legajo_.certificados.at(static_cast<std::size_t>(fila));
}

void FrmCertificados::Agregar() {
    certificados::Certificado nuevo;
    nuevo.exportador = legajo_.vendedor;
    // A number that lines bear already wants its certificate.
    nuevo.numero = legajo_.numerosSueltos().value(0);
    const qint64 id = Pantalla<FrmCertificado>().Editar(legajo_, nuevo);
    CerrarPantalla<FrmCertificado>();
    CargarLst(id);
}

void FrmCertificados::Modificar() {
    const certificados::Certificado *elegido = Elegido();
    if (elegido == nullptr) return;
    const qint64 id = Pantalla<FrmCertificado>().Editar(legajo_, *elegido);
    CerrarPantalla<FrmCertificado>();
    CargarLst(id);
}

void FrmCertificados::Eliminar() {
    AppContext &ctx = Contexto();
    const certificados::Certificado *elegido = Elegido();
    if (elegido == nullptr) return;
    Manejar(ctx, [&] {
        certificados::Eliminar(ctx, legajo_.interno, elegido->id);
        CargarLst();
    });
}

void FrmCertificados::Listar() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        const papel::Tabla tabla = certificados::TablaDeCertificados(ctx, legajo_.interno);
        if (tabla.filas.empty()) {
            ctx.dialogos.informar(
                u"La operación %1 no tiene certificados de origen, agréguelos con INSERT."_s.arg(
                    legajo_.interno));
            return;
        }
        ctx.dialogos.vistaPrevia({papel::ReporteDe(tabla, ctx.SeparadorDecimal), tabla});
    });
}

void AbrirCertificados(const QString &interno) {
    Pantalla<FrmCertificados>().Mostrar(interno);
    CerrarPantalla<FrmCertificados>();
}
