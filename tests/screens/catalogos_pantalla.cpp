#include "tests/screens/catalogos_pantalla.h"

using namespace Qt::StringLiterals;

void EnCatalogos::SetUp() {
    EnPantalla::SetUp();
    const QString entidad = u"CATALOGOS"_s;
    ejecutar(u"delete from catarticulos"_s, entidad);
    ejecutar(u"delete from articulo_ventaja"_s, entidad);
    for (const QString &clave : {u"'ALFA','A-1','Bomba chica'"_s, u"'ALFA','A-2','Bomba mediana'"_s,
                                 u"'ALFA','B-1','Bomba grande'"_s, u"'BETA','A-1','Otra bomba'"_s})
        ejecutar(
            u"insert into catarticulos "
            "(idcatalogo,idarticulo,descripcion,ncm,idunidad,preciounitario,sufijos,biendeuso) values ("_s +
                clave + u",'8413.70.10.100L','07',118.4,'AA01-AB(NP 750)-ZB(000750)-','N')"_s,
            entidad);
}

FrmCatArticulos &EnCatalogos::catalogos() {
    auto &p = Pantalla<FrmCatArticulos>();
    p.Mostrar();
    esperarVentana(p.ventana.get());
    return p;
}

std::string EnCatalogos::enArbol(const FrmCatArticulos &p) {
    const QModelIndex celda = p.ui.TvArticulos->currentIndex().siblingAtColumn(0);
    const QString arriba = celda.parent().isValid() ? celda.parent().data().toString() + u'/' : QString();
    return (arriba + celda.data().toString()).toStdString();
}

bool EnCatalogos::expandido(const FrmCatArticulos &p, int fila) {
    return p.ui.TvArticulos->isExpanded(p.ui.TvArticulos->model()->index(fila, 0));
}

bool EnCatalogos::enLista(const FrmCatArticulos &p) {
    return p.ui.hojas->currentWidget() == p.ui.hojaLista;
}

void EnCatalogos::teclear(QLineEdit *campo, const QString &texto) {
    campo->setFocus();
    campo->selectAll();
    escribir(texto);
    tecla(Qt::Key_Return);
}

void EnCatalogos::teclearBomba(FrmCatArticulos &p) {
    teclear(p.ui.TxtDescArticulos, u"Electrobomba"_s);
    teclear(p.ui.TxtPosicion, u"8413.70.10.100l"_s);
    teclear(p.ui.TxtUnidad, u"07"_s);
    teclear(p.ui.TxtUnitario, u"118.40"_s);
    // Brand known, its name, 750 W.
    teclear(p.ui.txtSufijos, u"AA01-AB(NP 750)-ZB(000750)-"_s);
}

std::string EnCatalogos::articulos() {
    return enCatalogos(u"select idcatalogo,idarticulo from catarticulos order by idcatalogo,idarticulo"_s)
        .toStdString();
}

std::string EnCatalogos::ultimoTexto() const {
    return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
}
