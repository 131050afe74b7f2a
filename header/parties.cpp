#include "header/parties.h"

#include <cstdlib>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype largoDeCuit = 11;

using entidad::personal;

bool leerVendedor(AppContext &ctx, const QString &codigo, QString &nombre) {
    Recordset rs;
    if (!Consultar(ctx, personal, "select nombre from vendedor where codigo = "_L1 + EnComillas(codigo), rs))
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
        ctx.dialogos.advertir(u"Cuit Invalido"_s);
        return false;
    }
    Recordset rs;
    if (!Consultar(ctx, personal, "select nombre from despadu where cuit = "_L1 + EnComillas(cuit), rs)) {
        ctx.dialogos.advertir(u"No se encontró el CUIT Ingresado"_s);
        return false;
    }
    nombre = rs.Texto(u"nombre").trimmed();
    return true;
}

QString BuscarNombre(AppContext &ctx, const QString &tabla, const QString &codigo) {
    if (tabla == "clientes"_L1)
        return leerNombre(ctx, "select nombre from clientes where cuit = "_L1 + EnComillas(codigo));
    if (tabla == "despadu"_L1)
        return leerNombre(ctx, "select nombre from despadu where cuit = "_L1 + EnComillas(codigo));
    if (tabla == "vendedor"_L1)
        return leerNombre(ctx, "select nombre from vendedor where codigo = "_L1 + EnComillas(codigo));
    return {};
}

BusquedaDeCliente BuscarCliente(AppContext &ctx, const QString &cuit, ClienteDeCaratula &cliente) {
    if (cuit.isEmpty()) {
        ctx.dialogos.advertir(u"Falta ingresar CUIT como parametro"_s);
        return BusquedaDeCliente::FaltaCuit;
    }
    Recordset rs;
    if (!Consultar(ctx, personal,
                   "select nombre,regalias,ajxvinc_4102 from clientes where cuit = "_L1 + EnComillas(cuit),
                   rs))
        return BusquedaDeCliente::NoEncontrado;
    cliente = {cuit, rs.Texto(u"nombre"), rs.Numero(u"regalias"), rs.Numero(u"ajxvinc_4102")};
    return BusquedaDeCliente::Encontrado;
}

bool BuscarVendedor(AppContext &ctx, const QString &codigo, QString &nombre,
                    const std::function<void(const QString &)> &agregar) {
    nombre.clear();
    if (codigo.isEmpty()) {
        ctx.dialogos.advertir(u"Falta Codigo de Vendedor para realizar la busqueda."_s);
        return false;
    }
    if (leerVendedor(ctx, codigo, nombre)) return true;
    if (!ctx.dialogos.preguntar(
            {u"No se encontro este codigo en la lista de VENDEDORES.\r\nDesea AGREGARLO a la lista"_s,
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
                   orden == OrdenDeVendedores::Nombre ? u"select * from vendedor order by nombre"_s
                                                      : u"select * from vendedor order by codigo"_s,
                   rs)) {
        ctx.dialogos.informar(u"No hay vendedores en la Base"_s);
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
    if (!Consultar(ctx, personal, "select * from vendedor where codigo = "_L1 + EnComillas(codigo), rs))
        return {};
    return vendedorDe(rs);
}

GuardadoDeVendedor GuardarVendedor(AppContext &ctx, const Vendedor &v, bool editando) {
    if (v.codigo.trimmed().isEmpty()) {
        ctx.dialogos.advertir(u"Falta el código del vendedor, ingréselo para guardar."_s);
        return GuardadoDeVendedor::FaltaCodigo;
    }
    if (v.nombre.trimmed().isEmpty()) {
        ctx.dialogos.advertir(u"Falta el nombre del vendedor, ingréselo para guardar."_s);
        return GuardadoDeVendedor::FaltaNombre;
    }
    const QString codigo = EnComillas(v.codigo);
    const QString nombre = TextoEnComillas(v.nombre);
    const QString domicilio = TextoEnComillas(v.domicilio);
    const QString pais = EnComillas(v.paisdelexportador.toUpper());
    if (editando) {
        Ejecutar(ctx, personal,
                 "update vendedor set nombre = "_L1 + nombre + ", domicilio = "_L1 + domicilio +
                     ", paisdelexportador = "_L1 + pais + " where codigo = "_L1 + codigo);
        return GuardadoDeVendedor::Guardado;
    }
    Recordset rs;
    if (Consultar(ctx, personal, "select count(1) as cont from vendedor where codigo = "_L1 + codigo, rs) &&
        rs.Numero(u"cont") > 0) {
        ctx.dialogos.advertir(u"El codigo ya existe.!"_s);
        return GuardadoDeVendedor::CodigoRepetido;
    }
    Ejecutar(ctx, personal,
             "insert into vendedor (codigo,nombre,domicilio, paisdelexportador) values ("_L1 + codigo + u',' +
                 nombre + u',' + domicilio + u',' + pais + u')');
    ctx.dialogos.informar(u"Datos ingresados correctamente."_s);
    return GuardadoDeVendedor::Guardado;
}

qint64 EliminarVendedor(AppContext &ctx, const QString &codigo) {
    return Ejecutar(ctx, personal, "delete from vendedor where codigo = "_L1 + EnComillas(codigo));
}

std::vector<PaisDeLista> CargarPais(AppContext &ctx) {
    std::vector<PaisDeLista> paises;
    Recordset rs;
    Consultar(ctx, u"SYSTABLAS"_s, u"select * from PAIS order by id"_s, rs);
    paises.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString id = rs.Texto(u"ID");
        paises.push_back({id, id + " - "_L1 + rs.Texto(u"Descripcion")});
    }
    return paises;
}

std::vector<Despachante> CargarDespachantes(AppContext &ctx) {
    std::vector<Despachante> despachantes;
    Recordset rs;
    Consultar(ctx, personal, u"select cuit,nombre from despadu order by nombre"_s, rs);
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
