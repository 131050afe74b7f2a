#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace esquema {

namespace {

/// One table in short form. A column's first character tells its kind: "#" number, "@" date, "*" generated,
/// "~" text that should be a number, none text. Indexes are separated by ";".
struct Fila {
    const char *nombre;
    const char *entidad;
    const char *columnas;
    const char *indices;
};

const Fila filas[] = {
    // Operations
    {"caratula", "INTERNOS",
     "interno @fechaalta idsubreg idaduana idaduanasal cuitcliente cuitdespaduana idvendedor anexo_vendedor "
     "factura1 factura2 factura3 factura4 factura5 #factura6 factura7 factura8 factura9 factura10 facturas "
     "#fobdivisas fobcoddivisas #fobdivcambio #fletedivisas fletecoddivisas #fletedivcambio "
     "#segurodivisas segurocoddivisas #segurodivcambio #seguroporcentaje "
     "#valoraprorratear #ajusteincluir #ajustededucir #factorconver "
     "idcondiciondeventa idpaisdestino motivodestsuspensiva autorizdestsuspensiva plazoautorizacion "
     "cierreventa facilidadpago fechaembarque venemb "
     "#dccomext dcestmerc dcforzarestmerc dcpaisorigen dcforzarpaisorigen dcpaisdestino dcstandard "
     "dcregalias "
     "dcbancos #dckgneto datocomprador nrotransinter opcionesiva opcionesganancias "
     "#gastos_anteriores_fob #gastos_posteriores_fob @djai_fecha_emb_aprox @djai_fecha_arrib_aprox "
     "dc_djai_forzardescripcionmercaderia dc_djai_descripcionmercaderia "
     "marcabul bulnro bulcod bultip buldes #bulpes via trans bandera cuittrans "
     "onccahabilitado onccaacuerdo onccacategoria onccacortes onccaelaborador onccaespecie onccafaneador "
     "onccameccoorgbio onccares3106 onccasispro onccamatadero",
     "interno;fechaalta"},
    {"subitems", "INTERNOS",
     "*id interno idcatalogo idarticulo otros ncm descripcion descripcion_maria idunidad #cantidad "
     "#preciounitario "
     "#fob estadistica #valorrelacionestadistica deresp #valorderesp idpais idpaisproc estadomerc sufijos "
     "biendeuso "
     "codprorrateo ~insumostemp ~insumosacons cancelaciones canccantidad cancnroitem cancnrosubitem lapi "
     "#kgneto "
     "#kgbruto itfiller certorig onccacategoria onccacortes naladisa codigoean #sbtrei ~ajusteincluir "
     "~ajustededucir tipoitem #idexportacion #idext factura_nro",
     "interno,ncm,preciounitario;interno,id"},
    {"groupsubitems", "INTERNOS",
     "#id #idsub interno idcatalogo idarticulo ncm descripcion #preciounitario idpais idpaisproc sufijos "
     "idunidad "
     "estadomerc biendeuso #cantidad estadistica #valorrelacionestadistica deresp #valorderesp codprorrateo "
     "lapi "
     "#kgneto #kgbruto #fob itfiller #insumostemp #insumosacons cancelaciones codigoean tipoitem "
     "onccacategoria "
     "onccacortes #ajusteincluir #ajustededucir flgkg",
     "interno,id,idsub;interno,idsub;interno,ncm,preciounitario;interno,codprorrateo,fob;ncm,preciounitario"},
    {"item", "INTERNOS",
     "#id interno ncm descripcion idpais idproc idunidad estadomerc biendeuso estadistica "
     "#valorrelacionestadistica "
     "deresp #valorderesp #cantidad #preciounitario #fobtotal #totalkneto #totalkbruto #itflete #itseguro "
     "#itcomext "
     "#ajusteinc #ajusteded lista naladisa lapi itfiller #insumostemp #insumosacons cancelaciones tipoitem "
     "codprorrateo onccaacuerdo onccacategoria onccacortes onccaelaborador onccaespecie onccafaneador "
     "onccamatadero "
     "onccameccoorgbio onccares3106 onccasispro opcionesiva opcionesganancias regalias standard lman itmodif "
     "itemasociado #cofexp mineria #sbtrei",
     "interno,id;interno,ncm"},
    {"itemliq", "INTERNOS",
     "#iditem interno idconceptos conceptos pgc motivo #porcentaje #porcentajeb #baseimp #total #valor",
     "interno,iditem,idconceptos"},
    {"itemventaja", "INTERNOS", "#iditem idventaja interno", "interno,iditem"},
    {"iteminfo", "INTERNOS", "#iditem idinfo valor interno", "interno,iditem"},
    {"liqcero", "INTERNOS", "idconcepto concepto #valor interno pgc", "interno"},
    {"sysflag", "INTERNOS", "flag valor #item interno", "interno"},
    {"idrel", "INTERNOS", "interno #idroot #idsub", "interno,idroot;interno,idsub"},
    {"descargas", "INTERNOS",
     "interno dit #item #subitem ncm expctit #cantidad #factorponderacion ~iditem #idexportacion #idext",
     "interno"},
    {"facturas", "INTERNOS", "interno #orden factura", "interno"},
    {"prorrateo", "INTERNOS", "interno codigo descripcion #valor", "interno"},
    {"itempresu", "INTERNOS", "interno concepto #valordolar #valorpeso", "interno"},
    {"itemref", "INTERNOS", "interno referencia valor", "interno"},
    {"interno", "INTERNOS", "interno maquina usuario @fecha", "interno"},
    {"version", "INTERNOS", "propiedad valor", ""},
    // Temporary inputs: what entered and what is left of it, and what each operation took
    {"stock", "INTERNOS",
     "*id dit #item #subitem ncm idcatalogo idarticulo descripcion idunidad #cantidad #saldo #cif divisa "
     "#preciounitario idpais sufijos #merma @fecha @vencimiento cuitcliente expctit interno #idlinea",
     "cuitcliente,idcatalogo,idarticulo;dit;interno"},
    {"stockmov", "INTERNOS",
     "*id #idstock interno #idlinea #iditem #cantidad #factor #descontado #cif @fecha maquina @devuelta "
     "maquinadevuelta",
     "interno,idlinea;idstock"},
    // The declarations that were handed over
    {"transferidas", "INTERNOS", "interno @fecha maquina archivo suma", "interno"},
    // Certificates of origin; the lines that one covers bear its number in their certorig
    {"certorigen", "INTERNOS", "*id interno numero @fecha idpais exportador @vencimiento observaciones",
     "interno"},
    // Small reference tables kept with the operations
    {"divisas", "INTERNOS", "id descripcion #imp", "id"},
    {"conpresu", "INTERNOS", "concepto", "concepto"},
    {"referencias", "INTERNOS", "referencia", "referencia"},
    {"conceptos", "INTERNOS", "id descripcion", "id"},
    {"unidrel", "INTERNOS", "unid1 unid2 #pase", "unid1,unid2"},
    {"tax", "INTERNOS", "ctax ltaxabr ctaxpog #porcentaje", "ctax"},
    {"tipoemb", "INTERNOS", "id descripcion", "id"},
    {"codemb", "INTERNOS", "id descripcion", "id"},
    {"via", "INTERNOS", "id descripcion", "id"},
    {"puertos", "INTERNOS", "cpor lpor", "cpor"},
    {"estadomercaderia", "INTERNOS", "id descripcion", "id"},
    {"unidades", "INTERNOS", "id descripcion", "id"},
    // Codes
    {"sta", "SYSTABLAS", "id descripcion cstaimpexp", "id"},
    {"aduana", "SYSTABLAS", "id descripcion", "id"},
    {"condiciondeventa", "SYSTABLAS", "id descripcion", "id"},
    {"pais", "SYSTABLAS", "id descripcion", "id"},
    {"motivo", "SYSTABLAS", "id descripcion", "id"},
    {"motivos", "SYSTABLAS", "id descripcion", "id"},
    {"mottmp", "SYSTABLAS", "id descripcion #dias impexpo", "id"},
    {"bancos", "SYSTABLAS", "id descripcion", "id"},
    {"coment", "SYSTABLAS", "interno coment", "interno"},
    {"ean", "SYSTABLAS", "subreg item", "subreg"},
    {"hval", "SYSTABLAS", "interno datos", "interno"},
    {"hvalexp", "SYSTABLAS", "interno datos", "interno"},
    {"diemchina", "SYSTABLAS", "ncm #diem", "ncm"},
    {"informacion", "SYSTABLAS", "id descripcion", "id"},
    {"ventajas", "SYSTABLAS", "id descripcion", "id"},
    {"lista", "SYSTABLAS", "id descripcion", "id"},
    // The codes of meat (ONCCA)
    {"oncca_acuerdo", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_categoria", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_cortes", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_elaborador", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_especie", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_faneador", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_mecoorgbio", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_res3106", "SYSTABLAS", "id descripcion", "id"},
    {"oncca_sispro", "SYSTABLAS", "id descripcion", "id"},
    // Nomenclature; the columns of ncm are added below
    {"ncm", "NCM", "", "001,002,003"},
    {"sufidos", "NCM", "sim sufijo detalle", "sim"},
    {"control_fecha", "NCM", "@fecha", ""},
    {"lnapifechadedatos", "NCM", "@fecha", ""},
    {"lnapiposicionesafectadas", "NCM", "posicion lnapi norma aclaraciones", "posicion"},
    {"lnapiaclaraciones", "NCM", "#aclaracion descripcion", "aclaracion"},
    // The licence letters: whose they are, by the beginning of the position, and what they say.
    {"letrasncm", "NCM", "posicion letra", "posicion"},
    {"letras", "NCM", "letra descripcion", "letra"},
    // Articles
    {"catarticulos", "CATALOGOS",
     "idcatalogo idarticulo ncm descripcion descripcion_maria naladisa #cantidad #preciounitario idpais "
     "idpaisproc "
     "idunidad estadomerc biendeuso sufijos #kgneto otros codigoean itfiller usuario @fecha",
     "idcatalogo,idarticulo;idarticulo"},
    {"articulo_ventaja", "CATALOGOS", "idcatalogo idarticulo ventaja", "idcatalogo,idarticulo"},
    // Parties
    {"clientes", "PERSONAL",
     "cuit nombre domicilio email #regalias #ajxvinc_4102 eximgan #eximganvalor #eximganvalortemp "
     "ivaareduccion "
     "#ivaareduccionvalor #ivaareduccionvalortemp cvdi #ingbru exceplapiaec",
     "cuit"},
    {"despadu", "PERSONAL", "cuit nombre", "cuit"},
    {"vendedor", "PERSONAL", "codigo nombre domicilio paisdelexportador nivel", "codigo"},
    {"transporte", "PERSONAL", "cuit nombre", "cuit"},
    {"tabla", "PERSONAL", "*idlin linea", ""},
    {"ventajasrel", "PERSONAL", "cuit idsubregimen ncm idventaja", "cuit"},
    // Local to the workstation. A column of dest is a control of the header that a regime may drop.
    {"dest", "USUARIO",
     "subreg txtidaduana1 txtidaduana2 txtcuitcliente txtcuitaduana txtidvendedor txtanexo_vendedor "
     "txtfobdivisas "
     "txtcoddivfob txtdivvalorfob txtfletedivisas txtcoddivflete txtdivvalorflete txtsegurodivisas "
     "txtcoddivseguro "
     "txtdivvalorseguro txtporc txtprorratear cmdprorrat txtajustincluir txtajustdeducir txtfactcon "
     "txtidcondventa "
     "txtidpais txtmotdestsusp txtautdestsusp txtplazoaut txtcierreventa txtfactura lstfact chfacturas "
     "txtdepalm "
     "txtdcestmerc chkdcforzarestmerc txtdcpaisorigen chkdcforzarpaisorigen txtdcpaisdest txtdcstandard "
     "txtdcregalias "
     "txtdcbancos txtkgneto txtdccomiext txtdatocomprador txtnrotransinter txtgastosanterioresfob "
     "txtgastosposterioresfob txtfechaembarque",
     "subreg"},
    {"impuestos_internos", "USUARIO", "ncm decreto #tasa_nominal", "ncm"},
};

Columna leerColumna(const QString &palabra) {
    switch (palabra.front().unicode()) {
        case '#':
            return {palabra.mid(1), Tipo::Numero};
        case '@':
            return {palabra.mid(1), Tipo::Fecha};
        case '*':
            return {palabra.mid(1), Tipo::Generado};
        case '~':
            return {palabra.mid(1), Tipo::TextoNumerico};
        default:
            return {palabra, Tipo::Texto};
    }
}

std::vector<Tabla> construir() {
    std::vector<Tabla> todas;
    for (const Fila &fila : filas) {
        Tabla tabla{QString::fromLatin1(fila.nombre), QString::fromLatin1(fila.entidad), {}, {}};
        const QStringList palabras =
            QString::fromLatin1(fila.columnas).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &palabra : palabras) tabla.columnas.push_back(leerColumna(palabra));
        if (tabla.nombre == "ncm"_L1) {
            constexpr int columnasDelNomenclador = 71;
            for (int n = 1; n <= columnasDelNomenclador; ++n)
                tabla.columnas.push_back({u"%1"_s.arg(n, 3, 10, QLatin1Char('0')), Tipo::Texto});
        }
        const QStringList indices =
            QString::fromLatin1(fila.indices).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (const QString &indice : indices) {
            QString nombre = indice;
            nombre.replace(QLatin1Char(','), QLatin1Char('_'));
            tabla.indices.push_back(
                {u"ix_%1_%2"_s.arg(tabla.nombre, nombre), indice.split(QLatin1Char(','))});
        }
        todas.push_back(std::move(tabla));
    }
    return todas;
}

}  // namespace

const Columna *Tabla::columna(QStringView nombreDeColumna) const {
    for (const Columna &c : columnas)
        if (nombreDeColumna.compare(c.nombre, Qt::CaseInsensitive) == 0) return &c;
    return nullptr;
}

const std::vector<Tabla> &tablas() {
    static const std::vector<Tabla> todas = construir();
    return todas;
}

const Tabla *buscarTabla(QStringView nombre) {
    for (const Tabla &t : tablas())
        if (nombre.compare(t.nombre, Qt::CaseInsensitive) == 0) return &t;
    return nullptr;
}

QStringList tablasDe(const QString &entidad) {
    QStringList nombres;
    for (const Tabla &t : tablas())
        if (t.entidad == entidad) nombres << t.nombre;
    return nombres;
}

}  // namespace esquema
