#pragma once
// Code tables: the description behind a code, whether a code exists, the pick list behind F6 and the check of
// a typed rate.

#include <QString>
#include <QStringView>
#include <memory>
#include <utility>
#include <vector>

#include "frame/context.h"

struct AppContext;

/// The description of `codigo` in the table of `clave` (SUBREG, ADUANA, PAIS, DIVISAS …), or the empty text.
/// `aux` goes in ("Div" asks for the rate) and out: the regime's direction for SUBREG, the rate "00.000000"
/// for a currency. A missing code is told with a warning unless `silencio` is 1. An empty key or code, and a
/// key without a table, send nothing. A store error gives the empty text.
QString BuscarDescripcion(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux,
                          int silencio = 0);
/// The same for the code itself, as stored. Reads SUBREG and ADUANA through another entity, and BANCOS too. A
/// port (PUERTO) is never answered.
QString BuscarId(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux,
                 int silencio = 0);

/// Opens the pick list of `clave` and answers the text shown for the chosen row; `codigo` takes its code.
/// `aux` takes the regime's direction for SUBREG, the port's name for PUERTO, and, when it came in as "Div",
/// the rate "00.000000" of the currency. The codes of MOTIVOSTEMPI and MOTIVOSTEMPE are "id|days". Empty,
/// with `codigo` and `aux` untouched, when the user leaves, for a key without a list (MOTIVO) and on a store
/// error.
QString Listar(AppContext &ctx, const QString &clave, QString &codigo, QString &aux);

/// A coded field and what stands beside it.
struct CampoDeCodigo {
    QString codigo;
    QString descripcion;
    QString aux;
};
/// F6 on a coded field: Listar; true when a row was chosen, and then the field holds its code, in capitals
/// whatever the table has, and the plain description.
bool ElegirCodigo(AppContext &ctx, const QString &clave, CampoDeCodigo &campo);

/// Which service answers ENTER.
enum class ServicioDeCodigo { Descripcion, Id };
/// ENTER on a coded field: fills the description (Descripcion), or takes the code that the table has (Id),
/// and answers whether the code exists. The code is in capitals behind it, whatever the table has. A code
/// that does not exist is told with the service's warning unless `silencio` is 1; the description is then
/// emptied and the code stays. An empty field empties the description and is no failure.
bool ConfirmarCodigo(AppContext &ctx, const QString &clave, CampoDeCodigo &campo,
                     ServicioDeCodigo servicio = ServicioDeCodigo::Descripcion, int silencio = 0);

/// A numeric code shorter than three characters with zeros ahead ("2" gives "002"); any other text as it is.
QString RellenarCodigo(const QString &codigo);
/// True for the fields of currencies and of the bank, whose codes are padded ahead of ENTER's look-up.
bool CampoRellenaCeros(QStringView control);

/// The key of a field's tag: "LL-PAIS" gives "PAIS", also when more follows behind a "#"; empty for a tag of
/// another form.
QString ClaveDeEtiqueta(const QString &etiqueta);

/// A rate field lost the focus: when the typed rate is not the currency's stored one (both as "0.000000"),
/// asks whether to store it as the default. Answers the rate to keep in the field, always the typed one. An
/// empty currency sends nothing; a currency that is not kept is told. Raises Falla.
QString ControlDivisa(AppContext &ctx, const QString &divisa, const QString &valor);

/// Descriptions for labels: never a message.
QString getAduanaDescripcion(AppContext &ctx, const QString &codigo);
QString getPaisDescripcion(AppContext &ctx, const QString &codigo);
QString getEstadoMercaderiaDescripcion(AppContext &ctx, const QString &codigo);
QString getUnidadDescripcion(AppContext &ctx, const QString &codigo);
QString getSubRegimen(AppContext &ctx, const QString &codigo);

/// What BuscarDescripcion asks the table of `clave` for; empty for a key that asks nothing.
QString SentenciaDeDescripcion(const QString &clave, const QString &codigo);

/// The descriptions that what follows is going to look up, asked of a server in one journey an entity; for
/// its own life.
class DescripcionesAnticipadas {
 public:
    /// `pedidos`: key and code, once for every look-up; what would send nothing is passed over. Silent when
    /// the store cannot answer: the look-ups do as ever.
    DescripcionesAnticipadas(AppContext &ctx, const std::vector<std::pair<QString, QString>> &pedidos);

 private:
    std::vector<std::unique_ptr<LecturaAdelantada>> lecturas_;
};
