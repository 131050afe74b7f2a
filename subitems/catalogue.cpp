#include "subitems/catalogue.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/texts.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/failures.h"
#include "subitems/nomenclature.h"
#include "subitems/suffixes.h"
#include "subitems/suffixtext.h"

using namespace Qt::StringLiterals;

namespace {

using ArticleStore::Articulo;
using entidad::catalogos;
using numeros::aNumero;
using numeros::esNumerico;

/// A name that stands for the code is cut to what a code field takes.
constexpr qsizetype largoDeCodigo = 50;
constexpr const char16_t *comoModificar = u"\r\nPara modificar un articulo debe presionar F9.";

/// What a check refuses, and the field it is about.
struct DefectoDeCampo {
    QString texto;
    const char *foco = "";
};

QString conClave(const QString &idcatalogo, const QString &idarticulo) {
    return "idcatalogo = "_L1 + TextoEnComillas(idcatalogo) + " and idarticulo = "_L1 +
           TextoEnComillas(idarticulo);
}

bool existeArticulo(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo) {
    Recordset rs;
    return Consultar(ctx, catalogos,
                     "select idarticulo "
                     "from catarticulos "
                     "where "_L1 +
                         conClave(idcatalogo, idarticulo),
                     rs);
}

bool mismoCodigo(const QString &a, const QString &b) {
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

/// The checks that need no store, in their order.
DefectoDeCampo revisarCampos(const FichaDeArticulo &f) {
    const Articulo &a = f.articulo;
    if (a.descripcion.isEmpty() && a.idarticulo.isEmpty())
        return {u"Debe ingresar un Nombre o Código de Articulo"_s, "txtIdArticulo"};
    if (a.idunidad.isEmpty()) return {u"Debe ingresar el Codigo de UNIDAD"_s, "TxtUnidad"};
    if (!esNumerico(f.TxtUnitario))
        return {u"Debe ingresar un valor numeric en el campo VALOR UNITARIO"_s, "TxtUnitario"};
    if (a.ncm.isEmpty()) return {u"Debe ingresar una POSICION del Nomenclador"_s, "TxtPosicion"};
    if (a.idcatalogo.isEmpty())
        return {u"Falta el catálogo del artículo, ingréselo para guardar."_s, "TxtIdCatalogo"};
    if (!f.txtKgUnitario.trimmed().isEmpty() && !esNumerico(f.txtKgUnitario))
        return {u"El peso unitario no es un número, corríjalo o déjelo vacío."_s, "txtKgUnitario"};
    return {};
}

DefectoDeCampo posicionDesconocida(const QString &posicion) {
    return {"No existe la posicion "_L1 + posicion + " en el nomenclador"_L1, "TxtPosicion"};
}

/// The engine of suffixes looks at the first two keys only; a line with this position would be refused by the
/// third.
DefectoDeCampo revisarPosicion(AppContext &ctx, const QString &posicion) {
    if (LeerMarcasNcm(ctx, posicion).encontrada) return {};
    return posicionDesconocida(posicion);
}

void preparar(FichaDeArticulo &f) {
    Articulo &a = f.articulo;
    NormalizarArticulo(a);
    f.TxtUnitario = f.TxtUnitario.trimmed();
    f.txtKgUnitario = f.txtKgUnitario.trimmed();
}

void tomarCifras(FichaDeArticulo &f) {
    f.articulo.preciounitario = aNumero(f.TxtUnitario);
    f.articulo.kgneto = f.txtKgUnitario.isEmpty() ? std::optional<double>() : aNumero(f.txtKgUnitario);
}

Veredicto rechazar(const AppContext &ctx, const DefectoDeCampo &defecto) {
    ctx.dialogos.advertir(defecto.texto);
    return Veredicto::mal(QLatin1String(defecto.foco));
}

/// The suffixes of the article, asked for where they are not complete.
Veredicto completarSufijosDeArticulo(AppContext &ctx, Articulo &a, ModoDeSufijos modo) {
    const QString nuevos = CompletarSufijos(
        ctx, a.ncm, a.sufijos, modo, ctx.opciones.SbtNroArtAI ? a.idarticulo : QString(), a.descripcion);
    if (!SufijosAceptados(nuevos)) return Veredicto::mal(u"txtSufijos"_s);
    a.sufijos = nuevos;
    return Veredicto::bien();
}

DefectoDeCampo yaExiste(const Articulo &a) {
    return {u"El artículo %1 ya está en el catálogo %2."_s.arg(a.idarticulo, a.idcatalogo) +
                QString::fromUtf16(comoModificar),
            "txtIdArticulo"};
}

/// "A, B y 3 más".
QString enumerar(const QStringList &codigos) {
    constexpr qsizetype nombrados = 10;
    const QString primeros = codigos.mid(0, nombrados).join(", "_L1);
    return codigos.size() > nombrados
               ? u"%1 y %2 más"_s.arg(primeros, QString::number(codigos.size() - nombrados))
               : primeros;
}

}  // namespace

void NormalizarArticulo(Articulo &a) {
    for (QString Articulo::*texto :
         {&Articulo::idcatalogo, &Articulo::idarticulo, &Articulo::descripcion, &Articulo::Descripcion_Maria,
          &Articulo::otros, &Articulo::codigoean, &Articulo::itfiller})
        a.*texto = (a.*texto).trimmed();
    for (QString Articulo::*codigo : {&Articulo::idunidad, &Articulo::ncm, &Articulo::idpais,
                                      &Articulo::idpaisproc, &Articulo::estadomerc, &Articulo::biendeuso})
        a.*codigo = (a.*codigo).trimmed().toUpper();
    a.sufijos = SinComillas(a.sufijos).trimmed();
    a.naladisa = SinComillas(a.naladisa.replace(u',', u'.')).trimmed();
    if (a.biendeuso != "S"_L1) a.biendeuso = u"N"_s;
}

QString DefectoDeArticulo(AppContext &ctx, const Articulo &articulo) {
    Articulo copia = articulo;
    return RevisorDeArticulos(ctx).Revisar(copia);
}

const RevisorDeArticulos::Posicion &RevisorDeArticulos::posicion(const QString &ncm) {
    auto vista = vistas_.find(ncm);
    if (vista == vistas_.end())
        vista = vistas_.insert(
            ncm, {LeerMarcasNcm(ctx_, ncm).encontrada, SuffixCheckerClass(ctx_).Requisitos(ncm)});
    return *vista;
}

QString RevisorDeArticulos::Revisar(Articulo &articulo) {
    FichaDeArticulo f{articulo, {}, {}};
    if (articulo.preciounitario) f.TxtUnitario = numeros::aTexto(*articulo.preciounitario);
    preparar(f);
    Articulo &a = f.articulo;
    if (const DefectoDeCampo d = revisarCampos(f); !d.texto.isEmpty()) return d.texto;
    const Posicion &suya = posicion(a.ncm);
    if (!suya.existe) return posicionDesconocida(a.ncm).texto;
    if (a.sufijos.isEmpty() && suya.requisitos.familias.empty()) a.sufijos = sufijos::sinSufijos;
    if (a.sufijos.isEmpty()) return u"Faltan los sufijos que pide la posición %1."_s.arg(a.ncm);
    if (a.sufijos != sufijos::sinSufijos && !a.sufijos.endsWith(u'-')) a.sufijos += u'-';
    if (SuffixCheckerClass::Cumple(suya.requisitos, a.sufijos) != 0 || !sufijos::EsTextoTerminado(a.sufijos))
        return u"Los sufijos %1 no son los que pide la posición %2."_s.arg(a.sufijos, a.ncm);
    articulo = a;
    return {};
}

Veredicto AgregarArticuloEx(AppContext &ctx, FichaDeArticulo &ficha) {
    preparar(ficha);
    Articulo &a = ficha.articulo;
    if (const DefectoDeCampo d = revisarCampos(ficha); !d.texto.isEmpty()) return rechazar(ctx, d);
    if (a.idarticulo.isEmpty()) a.idarticulo = Recortado(a.descripcion, largoDeCodigo).trimmed();
    if (existeArticulo(ctx, a.idcatalogo, a.idarticulo)) return rechazar(ctx, yaExiste(a));
    if (const DefectoDeCampo d = revisarPosicion(ctx, a.ncm); !d.texto.isEmpty()) return rechazar(ctx, d);
    if (Veredicto v = completarSufijosDeArticulo(ctx, a, ModoDeSufijos::Construir); !v.ok) return v;
    tomarCifras(ficha);
    try {
        if (!ArticleStore::Agregar(ctx, a, true)) return rechazar(ctx, yaExiste(a));
    } catch (const Falla &e) {
        ContarFalla(ctx, e, "[ARTICULOS.AGREGAR] "_L1 + QString::number(e.numero) + " - "_L1 + e.descripcion);
        return Veredicto::mal();
    }
    return Veredicto::bien();
}

Veredicto Modificar(AppContext &ctx, FichaDeArticulo &ficha) {
    preparar(ficha);
    Articulo &a = ficha.articulo;
    if (const DefectoDeCampo d = revisarCampos(ficha); !d.texto.isEmpty()) return rechazar(ctx, d);
    if (const DefectoDeCampo d = revisarPosicion(ctx, a.ncm); !d.texto.isEmpty()) return rechazar(ctx, d);
    if (Veredicto v = completarSufijosDeArticulo(ctx, a, ModoDeSufijos::Reconfirmar); !v.ok) return v;
    tomarCifras(ficha);
    if (ArticleStore::Modificar(ctx, a)) return Veredicto::bien();
    return rechazar(ctx,
                    {u"El artículo %1 ya no está en el catálogo %2, otro puesto lo eliminó o lo movió."_s.arg(
                         a.idarticulo, a.idcatalogo),
                     ""});
}

std::optional<FichaDeArticulo> BuscarArticuloSobreCat(AppContext &ctx, const QString &idcatalogo,
                                                      const QString &idarticulo) {
    const auto articulo = ArticleStore::Leer(ctx, idcatalogo, idarticulo);
    if (!articulo) return {};
    const auto forma = [&ctx](const std::optional<double> &cifra, QStringView mascara) {
        return cifra ? numeros::FormatSinPerdida(*cifra, mascara, ctx.SeparadorDecimal) : QString();
    };
    return FichaDeArticulo{*articulo, forma(articulo->preciounitario, u"00.00000"),
                           forma(articulo->kgneto, u"00.00")};
}

bool EliminarArticulo(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo) {
    if (idcatalogo.isEmpty() || idarticulo.isEmpty()) {
        ctx.dialogos.advertir(u"Falta parametros.!"_s);
        return false;
    }
    if (!ctx.dialogos.preguntar(
            {"Confirma eliminar el articulo: "_L1 + idarticulo + " del catalogo: "_L1 + idcatalogo,
             {},
             Icono::Pregunta,
             false}))
        return false;
    if (ArticleStore::Borrar(ctx, idcatalogo, idarticulo)) return true;
    ctx.dialogos.advertir(
        u"El artículo %1 ya no está en el catálogo %2, otro puesto lo eliminó o lo movió."_s.arg(idarticulo,
                                                                                                 idcatalogo));
    return true;
}

bool AgregarVentaja(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo, bool existente) {
    if (!existente) {
        ctx.dialogos.advertir(u"Solo se puede vincular ventajas a articulos ya existentes."_s +
                              QString::fromUtf16(comoModificar));
        return false;
    }
    const QString ventaja = ClientBook::getVentajasListado(ctx);
    if (ventaja.isEmpty()) return false;
    const QString titulo = u"Vincular Ventaja"_s;
    if (!existeArticulo(ctx, idcatalogo, idarticulo)) {
        ctx.dialogos.advertir(
            u"No se encuentra el Artículo "_s + idarticulo + u" en el catálogo "_s + idcatalogo, titulo);
        return false;
    }
    const auto vinculadas = CargarVentajasAsociadas(ctx, idcatalogo, idarticulo);
    if (std::any_of(vinculadas.begin(), vinculadas.end(),
                    [&ventaja](const auto &v) { return mismoCodigo(v.id, ventaja); })) {
        ctx.dialogos.advertir(
            u"La ventaja %1 ya está vinculada al artículo %2, elija otra."_s.arg(ventaja, idarticulo),
            titulo);
        return false;
    }
    Ejecutar(ctx, catalogos,
             "insert into articulo_ventaja (idcatalogo, idarticulo, ventaja) values ("_L1 +
                 TextoEnComillas(idcatalogo) + ","_L1 + TextoEnComillas(idarticulo) + ","_L1 +
                 TextoEnComillas(ventaja) + ")"_L1);
    return true;
}

std::vector<ClientBook::VentajaDeCatalogo> CargarVentajasAsociadas(AppContext &ctx, const QString &idcatalogo,
                                                                   const QString &idarticulo) {
    std::vector<ClientBook::VentajaDeCatalogo> vinculadas;
    Recordset rs;
    if (!Consultar(ctx, catalogos,
                   "select ventaja "
                   "from articulo_ventaja "
                   "where "_L1 +
                       conClave(idcatalogo, idarticulo),
                   rs))
        return vinculadas;
    const auto todas = ClientBook::CatalogoDeVentajas(ctx);
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString ventaja = rs.Texto(u"ventaja");
        const auto conocida = std::find_if(todas.begin(), todas.end(),
                                           [&ventaja](const auto &v) { return mismoCodigo(v.id, ventaja); });
        vinculadas.push_back({ventaja, conocida == todas.end() ? QString() : conocida->descripcion});
    }
    return vinculadas;
}

bool EliminarVentajaAsociada(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo,
                             const QString &ventaja) {
    if (!ctx.dialogos.preguntar({"Confirma eliminar la ventaja "_L1 + ventaja + " asociada al articulo "_L1 +
                                     idarticulo + u" del catálogo "_s + idcatalogo,
                                 {},
                                 Icono::Pregunta,
                                 false}))
        return false;
    Ejecutar(ctx, catalogos,
             "delete from articulo_ventaja where "_L1 + conClave(idcatalogo, idarticulo) +
                 " and ventaja  = "_L1 + TextoEnComillas(ventaja));
    return true;
}

std::vector<ArticleStore::FilaDeArticulo> CargarArticulosbyCatalogo(AppContext &ctx,
                                                                    const QString &idcatalogo) {
    return ArticleStore::Articulos(ctx, idcatalogo);
}

MovimientoDeArticulo MoverArticulo(AppContext &ctx, const QString &idarticulo, const QString &viejo,
                                   const QString &nuevo) {
    if (mismoCodigo(viejo, nuevo) || existeArticulo(ctx, nuevo, idarticulo))
        return MovimientoDeArticulo::YaEsta;
    const QString aNuevo = " set IDCATALOGO = "_L1 + TextoEnComillas(nuevo) + " where IDCATALOGO = "_L1 +
                           TextoEnComillas(viejo) + " and IDARTICULO = "_L1 + TextoEnComillas(idarticulo);
    if (Ejecutar(ctx, catalogos, "update CATARTICULOS"_L1 + aNuevo) == 0) return MovimientoDeArticulo::NoEsta;
    // Its advantages are found by the catalogue too.
    Ejecutar(ctx, catalogos, "update articulo_ventaja"_L1 + aNuevo);
    return MovimientoDeArticulo::Movido;
}

int CambiarCatalogoByArticulosSeleccionados(AppContext &ctx, const QStringList &articulos,
                                            const QString &viejo, const QString &nuevo) {
    if (articulos.isEmpty() || nuevo.isEmpty()) return 0;
    if (mismoCodigo(viejo, nuevo)) {
        ctx.dialogos.advertir(u"Los artículos ya están en el catálogo %1, elija otro."_s.arg(viejo));
        return 0;
    }
    if (!ctx.dialogos.preguntar(
            {u"¿Confirma cambiar %1 articulos seleccionados del catálogo [ "_s.arg(articulos.size()) + viejo +
                 u" ] al catálogo [ "_s + nuevo + " ]?"_L1,
             {},
             Icono::Pregunta,
             false}))
        return 0;
    int movidos = 0;
    QStringList repetidos;
    {
        const Reloj reloj(ctx.dialogos);
        for (const QString &articulo : articulos) {
            const MovimientoDeArticulo como = MoverArticulo(ctx, articulo, viejo, nuevo);
            if (como == MovimientoDeArticulo::Movido) ++movidos;
            if (como == MovimientoDeArticulo::YaEsta) repetidos << articulo;
        }
    }
    if (!repetidos.isEmpty())
        ctx.dialogos.advertir(u"Quedan en el catálogo [ "_s + viejo + u" ] los artículos que [ "_s + nuevo +
                              u" ] ya tiene: "_s + enumerar(repetidos));
    return movidos;
}

QString SeleccionarCatalogo(AppContext &ctx) {
    const QStringList todos = ArticleStore::Catalogos(ctx);
    if (todos.isEmpty()) {
        ctx.dialogos.informar(u"Todavía no hay catálogos, escriba el código del primero."_s);
        return {};
    }
    const int cual = ctx.dialogos.elegir({u"Catálogos"_s, todos, -1, Eleccion::Tipo::Codigos});
    return todos.value(cual);
}

QString SeleccionarCatalogoDeDestino(AppContext &ctx, const QString &viejo) {
    QStringList otros;
    for (const QString &catalogo : ArticleStore::Catalogos(ctx))
        if (!mismoCodigo(catalogo, viejo)) otros << catalogo;
    const QString titulo = u"Cambiar de catálogo"_s;
    if (!otros.isEmpty()) {
        const QStringList filas = otros + QStringList{u"(un catálogo nuevo)"_s};
        const int cual = ctx.dialogos.elegir({titulo, filas, -1, Eleccion::Tipo::Codigos});
        if (cual < 0 || cual >= filas.size()) return {};
        if (cual < otros.size()) return otros.at(cual);
    }
    const auto nuevo = ctx.dialogos.pedirTexto(
        {titulo, u"Ingrese el código del catálogo nuevo:"_s, static_cast<int>(largoDeCodigo), {}});
    return nuevo.value_or(QString()).trimmed();
}

void ImprimirCatalogo(AppContext &ctx, const QString &idcatalogo) {
    if (idcatalogo.trimmed().isEmpty())
        ctx.dialogos.advertir(u"Elija el catálogo que quiere imprimir."_s);
    else if (!ctx.salidas.catalogo)
        ctx.dialogos.informar(u"Los listados no están en este programa."_s);
    else
        ctx.salidas.catalogo(idcatalogo.trimmed());
}
