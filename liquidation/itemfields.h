#pragma once
// The fields of an item's page as data: the one table that loading, saving, the screen and the batch read.

#include <QHash>
#include <QString>
#include <vector>

/// How a field is kept and shown.
enum class ClaseDeCampo {
    Codigo,           ///< a code or a text, as it stands
    CodigoConBlanco,  ///< the same, kept with one blank behind it
    Numero,           ///< a number through the mask of its field
    Opcion,           ///< "S" or "N"
    OpcionIVA,        ///< a code of the regime's options, shown by its words
    OpcionGanancias,  ///< the same for the tax on profits
};

struct CampoDeItem {
    const char *control;  ///< of FrmVerItem
    const char *columna;  ///< of `item`, as the statement of a save spells it
    const char *nombre;   ///< what the user knows it by, for messages
    ClaseDeCampo clase;
    const char *mascara = "";             ///< of a number; empty: its shortest text
    bool seGraba = true;                  ///< part of the save of an item; the others are shown only
    const char *letras = "";              ///< the one letter that the field takes; empty: any text
    bool enCero = false;                  ///< saved on the operation's own page too
    const char *mascaraEnCero = nullptr;  ///< on the operation's page, where it is another
    bool vacioEsCero = false;             ///< a number that may be left empty
    bool dejaPendiente = false;           ///< changed, it asks for the liquidation anew
    const char *respuestaEnCero = "";     ///< what the operation's page answers in place of the change
};

/// Every field; those that are saved come first, in the order of the save.
const std::vector<CampoDeItem> &CamposDeItem();
/// The field of a column, in any case of letters; null for none.
const CampoDeItem *CampoDeColumna(const QString &columna);

/// Whether the page can hold the text in the field: its one letter, an option of its box; anything where it
/// takes any text, and the empty text everywhere. A number is judged by the save.
bool CampoAdmite(const CampoDeItem &campo, const QString &texto);

/// What the page holds: the text of each field by its column, as CampoDeItem::columna spells it. A number is
/// its whole text in the workstation's form, so that a mask never rounds what nobody touched, or what the
/// user typed; an option is its code ("S", "IVAAD1").
using DatosDeItem = QHash<QString, QString>;
