#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

LibreriaDeInsumos::LibreriaDeInsumos() {
    insumos::crearEnlace = [this] {
        ++enlaces;
        const auto dice = [this](QLatin1StringView funcion) { return acepta && seNiegaA != funcion; };
        insumos::Enlace e;
        e.EstadoConexion = [this] { return conectada; };
        e.ConectarDB = [this](const QString &interno) { llamadas << "ConectarDB "_L1 + interno; };
        e.Mostrar = [this] { return eleccion; };
        e.AgregarInsumo = [this, dice](const insumos::Toma &t, double &cif) {
            llamadas << u"AgregarInsumo %1|%2|%3|%4|%5"_s.arg(t.Interno, t.CATNRO, t.PRDNRO)
                            .arg(t.SUBITEM)
                            .arg(t.PRDCAN);
            cif = CIFDescontado;
            return dice("AgregarInsumo"_L1);
        };
        e.Participa = [](const insumos::Toma &) { return true; };
        e.QueTomo = [](const QString &, qint64) { return insumos::Tomado::Nada; };
        e.RetomarInsumo = [](const insumos::Toma &, double &) { return true; };
        e.ReubicarItems = [](const QString &) {};
        e.EliminarInsumo = [this, dice](const QString &interno, const QString &catalogo,
                                        const QString &articulo, qint64 linea) {
            llamadas << u"EliminarInsumo %1|%2|%3|%4"_s.arg(interno, catalogo, articulo).arg(linea);
            return dice("EliminarInsumo"_L1) && retenidas.count(linea) == 0;
        };
        e.EnviarGrupoIdSub = [this, dice](const QString &interno, qint64 raiz, const QString &lista) {
            llamadas << u"EnviarGrupoIdSub %1 %2 %3"_s.arg(interno).arg(raiz).arg(lista);
            return dice("EnviarGrupoIdSub"_L1);
        };
        e.EnviarNroItem = [this, dice](qint64 item, const QString &lista) {
            llamadas << u"EnviarNroItem %1 %2"_s.arg(item).arg(lista);
            return dice("EnviarNroItem"_L1);
        };
        return e;
    };
}

LibreriaDeInsumos::~LibreriaDeInsumos() {
    insumos::crearEnlace = nullptr;
}

std::string LibreriaDeInsumos::pedidos(const char *funcion) const {
    const QString cabeza = QLatin1StringView(funcion) + ' '_L1;
    QStringList hallados;
    for (const QString &llamada : llamadas)
        if (llamada.startsWith(cabeza)) hallados << llamada.mid(cabeza.size());
    return hallados.join(';'_L1).toStdString();
}
