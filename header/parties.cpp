#include "header/parties.h"

#include <cstdlib>

#include "frame/context.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

constexpr qsizetype largoDeCuit = 11;

const QString personal = QStringLiteral("PERSONAL");

bool leerVendedor(AppContext &ctx, const QString &codigo, QString &nombre) {
    Recordset rs;
    if (!Consultar(ctx, personal, L("select nombre from vendedor where codigo = '") + codigo + L("'"), rs))
        return false;
    nombre = rs.Texto(u"nombre");
    return true;
}

Vendedor vendedorDe(const Recordset &rs) {
    return {rs.Texto(u"codigo"), rs.Texto(u"nombre"), rs.Texto(u"domicilio"), rs.Texto(u"paisdelexportador"),
            rs.Texto(u"nivel")};
}

QStringList columnaDe(const std::vector<Vendedor> &vendedores, QString Vendedor::*campo) {
    QStringList columna;
    columna.reserve(static_cast<qsizetype>(vendedores.size()));
    for (const Vendedor &v : vendedores) columna << v.*campo;
    return columna;
}

QString leerNombre(AppContext &ctx, const QString &sentencia) {
    Recordset rs;
    return Consultar(ctx, personal, sentencia, rs) ? rs.Texto(u"nombre").trimmed() : QString();
}

}  // namespace

bool CUITValido(const QString &cuit) {
    if (cuit.size() != largoDeCuit) return false;
    int suma = 0;
    int peso = 2;
    for (qsizetype i = largoDeCuit - 2; i >= 0; --i) {
        const int digito = cuit[i].digitValue();
        if (digito < 0) return false;
        suma += digito * peso;
        peso = peso == 7 ? 2 : peso + 1;
    }
    const int resto = suma % 11;
    const int esperado = resto == 0 || resto == 1 ? resto : std::abs(11 - resto);
    return QString::number(esperado) == cuit.back();
}

bool BuscarDespachante(AppContext &ctx, const QString &cuit, QString &nombre) {
    nombre.clear();
    if (cuit.size() != largoDeCuit) {
        ctx.dialogos.advertir(QStringLiteral("Cuit Invalido"));
        return false;
    }
    Recordset rs;
    if (!Consultar(ctx, QStringLiteral("PERSONAL"),
                   L("select nombre from despadu where cuit = '") + cuit + L("'"), rs)) {
        ctx.dialogos.advertir(QStringLiteral("No se encontró el CUIT Ingresado"));
        return false;
    }
    nombre = rs.Texto(u"nombre").trimmed();
    return true;
}

QString BuscarNombre(AppContext &ctx, const QString &tabla, const QString &codigo) {
    if (tabla == L("clientes"))
        return leerNombre(ctx, L("select nombre from clientes where cuit = '") + codigo + L("'"));
    if (tabla == L("despadu"))
        return leerNombre(ctx, L("select nombre from despadu where cuit = '") + codigo + L("'"));
    if (tabla == L("vendedor"))
        return leerNombre(ctx, L("select nombre from vendedor where codigo = '") + codigo + L("'"));
    return {};
}

BusquedaDeCliente BuscarCliente(AppContext &ctx, const QString &cuit, ClienteDeCaratula &cliente) {
    if (cuit.isEmpty()) {
        ctx.dialogos.advertir(QStringLiteral("Falta ingresar CUIT como parametro"));
        return BusquedaDeCliente::FaltaCuit;
    }
    Recordset rs;
    if (!Consultar(ctx, personal,
                   L("select nombre,regalias,ajxvinc_4102 from clientes where cuit = '") + cuit + L("'"), rs))
        return BusquedaDeCliente::NoEncontrado;
    cliente = {cuit, rs.Texto(u"nombre"), rs.Numero(u"regalias"), rs.Numero(u"ajxvinc_4102")};
    return BusquedaDeCliente::Encontrado;
}

bool BuscarVendedor(AppContext &ctx, const QString &codigo, QString &nombre,
                    const std::function<void(const QString &)> &agregar) {
    nombre.clear();
    if (codigo.isEmpty()) {
        ctx.dialogos.advertir(QStringLiteral("Falta Codigo de Vendedor para realizar la busqueda."));
        return false;
    }
    if (leerVendedor(ctx, codigo, nombre)) return true;
    if (!ctx.dialogos.preguntar(
            {QStringLiteral(
                 "No se encontro este codigo en la lista de VENDEDORES.\r\nDesea AGREGARLO a la lista"),
             {},
             Icono::Pregunta,
             false}))
        return false;
    if (!agregar) return false;
    agregar(codigo);
    return leerVendedor(ctx, codigo, nombre);
}

OrdenDeVendedores OrdenDeVendedoresElegido(const AppContext &ctx) {
    return ctx.opciones.VendedorOrderxNombre ? OrdenDeVendedores::Nombre : OrdenDeVendedores::Codigo;
}

std::vector<Vendedor> CargarVendedores(AppContext &ctx, OrdenDeVendedores orden) {
    std::vector<Vendedor> vendedores;
    Recordset rs;
    if (!Consultar(ctx, personal,
                   orden == OrdenDeVendedores::Nombre
                       ? QStringLiteral("select * from vendedor order by nombre")
                       : QStringLiteral("select * from vendedor order by codigo"),
                   rs)) {
        ctx.dialogos.informar(QStringLiteral("No hay vendedores en la Base"));
        return vendedores;
    }
    vendedores.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) vendedores.push_back(vendedorDe(rs));
    return vendedores;
}

QStringList NombresDeVendedores(const std::vector<Vendedor> &vendedores) {
    return columnaDe(vendedores, &Vendedor::nombre);
}

QStringList CodigosDeVendedores(const std::vector<Vendedor> &vendedores) {
    return columnaDe(vendedores, &Vendedor::codigo);
}

std::optional<Vendedor> CargarVendedor(AppContext &ctx, const QString &codigo) {
    Recordset rs;
    if (!Consultar(ctx, personal, L("select * from vendedor where codigo = '") + codigo + L("'"), rs))
        return {};
    return vendedorDe(rs);
}

GuardadoDeVendedor GuardarVendedor(AppContext &ctx, const Vendedor &v, bool editando) {
    if (v.codigo.trimmed().isEmpty()) {
        ctx.dialogos.advertir(QStringLiteral("Falta el código del vendedor, ingréselo para guardar."));
        return GuardadoDeVendedor::FaltaCodigo;
    }
    if (v.nombre.trimmed().isEmpty()) {
        ctx.dialogos.advertir(QStringLiteral("Falta el nombre del vendedor, ingréselo para guardar."));
        return GuardadoDeVendedor::FaltaNombre;
    }
    const QString nombre = DoblarComillas(v.nombre);
    const QString domicilio = DoblarComillas(v.domicilio);
    if (editando) {
        Ejecutar(ctx, personal,
                 L("update vendedor set nombre = '") + nombre + L("', domicilio = '") + domicilio +
                     L("', paisdelexportador = '") + v.paisdelexportador + L("' where codigo = '") +
                     v.codigo + L("'"));
        return GuardadoDeVendedor::Guardado;
    }
    Recordset rs;
    if (Consultar(ctx, personal,
                  L("select count(1) as cont from vendedor where codigo = '") + v.codigo + L("'"), rs) &&
        rs.Numero(u"cont") > 0) {
        ctx.dialogos.advertir(QStringLiteral("El codigo ya existe.!"));
        return GuardadoDeVendedor::CodigoRepetido;
    }
    Ejecutar(ctx, personal,
             L("insert into vendedor (codigo,nombre,domicilio, paisdelexportador) values ('") + v.codigo +
                 L("','") + nombre + L("','") + domicilio + L("','") + v.paisdelexportador + L("')"));
    ctx.dialogos.informar(QStringLiteral("Datos ingresados correctamente."));
    return GuardadoDeVendedor::Guardado;
}

qint64 EliminarVendedor(AppContext &ctx, const QString &codigo) {
    return Ejecutar(ctx, personal, L("delete from vendedor where codigo = '") + codigo + L("'"));
}

std::vector<PaisDeLista> CargarPais(AppContext &ctx) {
    std::vector<PaisDeLista> paises;
    Recordset rs;
    Consultar(ctx, QStringLiteral("SYSTABLAS"), QStringLiteral("select * from PAIS order by id"), rs);
    paises.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString id = rs.Texto(u"ID");
        paises.push_back({id, id + L(" - ") + rs.Texto(u"Descripcion")});
    }
    return paises;
}

std::vector<Despachante> CargarDespachantes(AppContext &ctx) {
    std::vector<Despachante> despachantes;
    Recordset rs;
    Consultar(ctx, personal, QStringLiteral("select cuit,nombre from despadu order by nombre"), rs);
    for (; !rs.Eof(); rs.MoveNext()) despachantes.push_back({rs.Texto(u"cuit"), rs.Texto(u"nombre")});
    return despachantes;
}

ParteElegida &VendedorElegido() {
    static ParteElegida elegido;
    return elegido;
}

ParteElegida &DespachanteElegido() {
    static ParteElegida elegido;
    return elegido;
}

bool ListarVendedores(const std::function<void()> &mostrar, QString &codigo, QString &nombre) {
    VendedorElegido() = {};
    if (mostrar) mostrar();
    if (VendedorElegido().codigo.isEmpty()) return false;
    codigo = VendedorElegido().codigo;
    nombre = VendedorElegido().nombre;
    return true;
}
