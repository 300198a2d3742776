#include "db/Esquema.h"

#include <string_view>

// Each table carries the columns that the statements of this program name,
// and no more: the rest of a sibling module's table is that module's affair.
// Codes that the statements put between apostrophes are text; codes written
// bare are whole numbers. Flags tested with IN (1,-1), and the check boxes of
// the parameter screens, are logical columns.
//
// Index names are unique across a database: "IX_<table>_<n>".

namespace esquema {

namespace {

using enum TipoDato;

// Lengths of the text columns that repeat across tables.
constexpr int kCodigo = 10; // catalogue codes: concepts, cities, branches
constexpr int kRfc = 13;    // a tax number: 12 characters for a company, 13 for a person
constexpr int kFolio = 20;  // document keys, folios and user codes
// Journal folios: eleven digits, more when the counter outgrows them.
constexpr int kFolioPoliza = 20;
constexpr int kArticulo = 30; // COD1_ART and the codes that point to it
constexpr int kRubro = 20;    // COD_RUBRO, "1-01-02-01"
constexpr int kCuenta = 30;   // account number of the accounting package
constexpr int kNombre = 50;   // names, users, short descriptions
constexpr int kDescripcion = 100;
constexpr int kRuta = 255; // paths, addresses and connection texts

// Kept by the company database and, as the current one, by the reference
// database, from which a new company takes its version.
Tabla Version() {
  return {"tblVersion",
          {
              {"VER", Entero},
              {"CXC_CENTRAL", Entero},
          }};
}

} // namespace

const std::vector<Tabla> &TablasEmpresa() {
  static const std::vector<Tabla> tablas = {
      // ---------------------------------------------------------------
      // Users and the version of the company
      // ---------------------------------------------------------------
      {"tblUsuarios",
       {
           {"COD_USU", Texto, kFolio},
           {"NOM_USU", Texto, kNombre},
           {"TIP_USU", Entero},
           {"PASS1_USU", Texto, kNombre},
           {"PASS2_USU", Texto, kNombre},
           {"ESTATUS", Entero},
       },
       {{"IX_tblUsuarios_1", {"COD_USU"}}}},

      Version(),

      // ---------------------------------------------------------------
      // The company, its branches, stores and issuing place
      // ---------------------------------------------------------------
      {"tblEmpresa",
       {
           {"COD_EMPRESA", Entero},
           {"NOM_EMP", Texto, kDescripcion},
           {"NOM_COM", Texto, kDescripcion},
           {"DIR1_EMP", Texto, kDescripcion},
           {"EXT_EMP", Texto, kFolio},
           {"INT_EMP", Texto, kFolio},
           {"CP_EMP", Texto, kCodigo},
           {"COL_EMP", Texto, kNombre},
           {"RFC1_EMP", Texto, kRfc},
           {"RFC2_EMP", Texto, kRfc},
           {"RFC3_EMP", Texto, kRfc},
           {"DESCRIP1", Texto, kDescripcion},
           {"DESCRIP2", Texto, kDescripcion},
           {"DESCRIP3", Texto, kDescripcion},
           {"TEL1_EMP", Texto, 30},
           {"TEL2_EMP", Texto, 30},
           {"TEL3_EMP", Texto, 30},
           {"TEL4_EMP", Texto, 30},
           {"IMAGEN_EMP", Texto, kRuta},
           {"COD_CD", Texto, kCodigo},
           {"COD_EDO", Texto, kCodigo},
           {"COD_PAIS", Texto, kCodigo},
           {"FOLIO_NV", Texto, kFolio},
           {"FOLIO_FACT", Texto, kFolio},
           {"EXPEDICION", Entero},
           {"WEBPAGE", Texto, kDescripcion},
       },
       {{"IX_tblEmpresa_1", {"COD_EMPRESA"}}}},

      {"tblLugarExpedicion",
       {
           {"COD_EMPRESA", Entero},
           {"CALLE_EXP", Texto, kDescripcion},
           {"EXT_EXP", Texto, kFolio},
           {"INT_EXP", Texto, kFolio},
           {"CP_EXP", Texto, kCodigo},
           {"COL_EXP", Texto, kNombre},
           {"CD_EXP", Texto, kCodigo},
           {"EDO_EXP", Texto, kCodigo},
           {"PAIS_EXP", Texto, kCodigo},
       },
       {{"IX_tblLugarExpedicion_1", {"COD_EMPRESA"}}}},

      {"tblSucursales",
       {
           {"COD_SUCU", Texto, kCodigo},
           {"DES_SUCU", Texto, kNombre},
           {"ES_PRINCIPAL", Logico},
       },
       {{"IX_tblSucursales_1", {"COD_SUCU"}}}},

      {"tblCatAlmacenes",
       {
           {"COD_ALM", Texto, kCodigo},
           {"DES_ALM", Texto, kNombre},
           {"COD_TIP", Entero},
           {"COD_SUCU", Texto, kCodigo},
           {"SIN_EXIST", Logico},
           {"PROT_MAX", Entero},
           {"AP_ALM", Entero},
           {"INV_CICLICO", Logico},
           {"DIA_CICLICO", Entero},
           {"CANT_CICLICO", Entero},
           {"PORC_SINMOV", Decimal},
           {"ULTIMO_CICLICO", Fecha},
       },
       {{"IX_tblCatAlmacenes_1", {"COD_ALM"}}}},

      {"tblExpedicion",
       {
           {"COD_EXPED", Entero},
           {"DES_EXPED", Texto, kDescripcion},
       },
       {{"IX_tblExpedicion_1", {"COD_EXPED"}}}},

      {"tblRegimenEmpresa",
       {
           {"COD_REGIMEN", Entero},
           {"DES_REGIMEN", Texto, kDescripcion},
           {"ACTIVO", Logico},
           {"CFDI_REGIMEN", Texto, kCodigo},
       }},

      // ---------------------------------------------------------------
      // Region catalogues
      // ---------------------------------------------------------------
      {"tblCiudad",
       {
           {"COD_CID", Texto, kCodigo},
           {"DES_CID", Texto, kNombre},
           {"NOM_CID", Texto, kNombre},
           {"COD_AREA", Texto, kCodigo},
           {"MUN_CID", Texto, kNombre},
       },
       {{"IX_tblCiudad_1", {"COD_CID"}}}},

      {"tblEstado",
       {
           {"COD_EST", Texto, kCodigo},
           {"DES_EST", Texto, kNombre},
           {"NOM_EST", Texto, kNombre},
           {"NUM_EST", Texto, kCodigo},
       },
       {{"IX_tblEstado_1", {"COD_EST"}}}},

      {"tblPais",
       {
           {"COD_PAIS", Texto, kCodigo},
           {"DES_PAIS", Texto, kNombre},
           {"NOM_PAIS", Texto, kNombre},
       },
       {{"IX_tblPais_1", {"COD_PAIS"}}}},

      // ---------------------------------------------------------------
      // Posting rules: modules, operations, data, rules and their rows
      // ---------------------------------------------------------------
      {"tblModulos",
       {
           {"COD_MODUL", Entero},
           {"DES_MODUL", Texto, kNombre},
       },
       {{"IX_tblModulos_1", {"COD_MODUL"}}}},

      {"tblCatOperaciones",
       {
           {"COD_OPER", Entero},
           {"DES_OPER", Texto, kDescripcion},
           {"MODULO", Entero},
           {"GENERA_CON", Logico},
       },
       {{"IX_tblCatOperaciones_1", {"COD_OPER"}}, {"IX_tblCatOperaciones_2", {"MODULO"}}}},

      {"tblDatosxOperacion",
       {
           {"COD_DATO", Entero},
           {"DES_DATO", Texto, kDescripcion},
           {"COD_OPER", Entero},
           {"CAMPO_ESTBD", Entero},
       },
       {{"IX_tblDatosxOperacion_1", {"COD_DATO"}}, {"IX_tblDatosxOperacion_2", {"COD_OPER"}}}},

      {"tblOperacionxConcep",
       {
           {"COD_POL", Entero},
           {"COD_OPER", Entero},
           {"MODULO", Entero},
           {"CONCEPTO", Texto, kCodigo},
           {"TIP_POLIZA", Texto, kCodigo},
           {"STS_POLIZA", Texto, 1},
           {"FREC", Entero},
           {"DIARIO", Entero},
       },
       {{"IX_tblOperacionxConcep_1", {"COD_POL"}},
        {"IX_tblOperacionxConcep_2", {"MODULO", "COD_OPER", "CONCEPTO"}},
        {"IX_tblOperacionxConcep_3", {"COD_OPER", "CONCEPTO"}}}},

      // ORDEN_CREA is numbered by the database; generation reads the rows of
      // a rule in that order and no statement writes it.
      {"tblRubrosxOperacion",
       {
           {"COD_DATO", Entero},
           {"CUENTA_DEBE", Texto, kCuenta},
           {"CUENTA_HABER", Texto, kCuenta},
           {"COD_POL", Entero},
           {"PORCENTAJE", Decimal},
           {"TIPO_MOV", Entero},
           {"CONC_MOV", Entero},
           {"SUPR_CERO", Entero},
           {"COD_REF", Entero},
           {"TXT_REF", Texto, kNombre},
           {"COD_DIARIO", Texto, kCodigo},
           {"TXT_DIARIO", Texto, kNombre},
           {"COD_CONC", Entero},
           {"TXT_CONC", Texto, 30},
           {"SEG_NEG", Entero},
           {"NUM_SEG", Entero},
           {"RUBRO_DEBE", Texto, kRubro},
           {"RUBRO_HABER", Texto, kRubro},
           {"COD_OPER", Entero},
           {"ORDEN_CREA", Contador},
       },
       {{"IX_tblRubrosxOperacion_1", {"COD_POL", "ORDEN_CREA"}},
        {"IX_tblRubrosxOperacion_2", {"RUBRO_DEBE"}},
        {"IX_tblRubrosxOperacion_3", {"RUBRO_HABER"}}}},

      // ---------------------------------------------------------------
      // Chart of rubros, journal types and bank accounts
      // ---------------------------------------------------------------
      {"tblCatRubros",
       {
           {"COD_RUBRO", Texto, kRubro},
           {"DES_RUBRO", Texto, kDescripcion},
           {"ACUM_RUBRO", Texto, kRubro},
           {"TIPOCTA_RUBRO", Texto, kFolio},
           {"EDOFIN_RUBRO", Texto, kFolio},
           {"NATURAL_RUBRO", Texto, kFolio},
           {"CLASIF_RUBRO", Texto, 1},
           {"ULTIMO_RUBRO", Texto, 1},
           {"CUENTA_RUBRO", Texto, kCuenta},
           {"SUB_RUBRO", Entero},
       },
       {{"IX_tblCatRubros_1", {"COD_RUBRO"}},
        {"IX_tblCatRubros_2", {"ACUM_RUBRO"}},
        {"IX_tblCatRubros_3", {"CUENTA_RUBRO"}}}},

      // The SAT's grouping code and nature of each rubro, for the electronic accounting.
      {"tblRubrosSAT",
       {
           {"COD_RUBRO", Texto, kRubro},
           {"COD_AGRUP", Texto, kCodigo},
           {"NATURALEZA", Texto, 1},
       },
       {{"IX_tblRubrosSAT_1", {"COD_RUBRO"}}}},

      {"tblFolios",
       {
           {"COD_FOLIO", Texto, kCodigo},
           {"DES_FOLIO", Texto, kNombre},
           {"FOL_FOLIOS", Texto, kFolio},
           {"COD_NUM", Entero},
       },
       {{"IX_tblFolios_1", {"COD_FOLIO"}}}},

      {"tblCatCtasBancos",
       {
           {"COD_RUBRO", Texto, kRubro},
           {"NUM_CUENTA", Texto, kCuenta},
       },
       {{"IX_tblCatCtasBancos_1", {"NUM_CUENTA"}}, {"IX_tblCatCtasBancos_2", {"COD_RUBRO"}}}},

      // ---------------------------------------------------------------
      // Catalogues of concepts that the rules name
      // ---------------------------------------------------------------
      {"tblConceptoIE",
       {
           {"COD_CIE", Texto, kCodigo},
           {"DES_CIE", Texto, kNombre},
           {"COD_CON", Texto, kCodigo},
       },
       {{"IX_tblConceptoIE_1", {"COD_CIE"}}}},

      {"tblServicios",
       {
           {"COD_SER", Texto, kCodigo},
           {"DES_SER", Texto, kNombre},
       },
       {{"IX_tblServicios_1", {"COD_SER"}}}},

      {"tblConceptos",
       {
           {"COD_CON", Texto, kCodigo},
           {"DES_CON", Texto, kNombre},
           {"TIP_MOV", Texto, kCodigo},
           {"FOL_CON", Texto, kFolio},
       },
       {{"IX_tblConceptos_1", {"COD_CON"}}}},

      {"tblCargosEnCompras",
       {
           {"COD_CAR", Texto, kCodigo},
           {"DES_CAR", Texto, kNombre},
       },
       {{"IX_tblCargosEnCompras_1", {"COD_CAR"}}}},

      {"tblConceptosCom",
       {
           {"COD_CON", Texto, kCodigo},
           {"DES_CON", Texto, kNombre},
           {"COD_FOL", Texto, kCodigo},
       },
       {{"IX_tblConceptosCom_1", {"COD_CON"}}}},

      {"tblConceptosGyT",
       {
           {"COD_CON", Texto, kCodigo},
           {"DES_CON", Texto, kNombre},
           {"COD_FOL", Texto, kCodigo},
       },
       {{"IX_tblConceptosGyT_1", {"COD_CON"}}}},

      // ---------------------------------------------------------------
      // Journal: entries, their lines, the documents in them, the log
      // ---------------------------------------------------------------
      {"tblPolizasEnc",
       {
           {"FOL_POLIZA", Texto, kFolioPoliza},
           {"FEC_POLIZA", Fecha},
           {"TIP_POLIZA", Texto, kCodigo},
           {"COD_OPER", Entero},
           {"CONCEP_POL", Texto, 30},
           {"FEC_ANTERIOR", Fecha},
           {"IMPANT_DEBE", Dinero},
           {"IMPANT_HABER", Dinero},
           {"SUM_DEBE", Dinero},
           {"SUM_HABER", Dinero},
           {"ESTATUS", Entero},
       },
       {{"IX_tblPolizasEnc_1", {"FOL_POLIZA", "TIP_POLIZA"}},
        {"IX_tblPolizasEnc_2", {"FEC_POLIZA"}}}},

      {"tblPolizasRen",
       {
           {"FOL_POLIZA", Texto, kFolioPoliza},
           {"TIP_POLIZA", Texto, kCodigo},
           {"COD_DATO", Entero},
           {"RUBRO_DEBE", Texto, kRubro},
           {"RUBRO_HABER", Texto, kRubro},
           {"CUENTA_DEBE", Texto, kCuenta},
           {"CUENTA_HABER", Texto, kCuenta},
           {"IMP_DEBE", Dinero},
           {"IMP_HABER", Dinero},
       },
       {{"IX_tblPolizasRen_1", {"FOL_POLIZA", "TIP_POLIZA"}}}},

      {"tblMovimxPoliza",
       {
           {"FOLIO_MOV", Texto, kFolio},
           {"CONCEPTO", Texto, kCodigo},
           {"MODULO", Entero},
           {"FOLIO_POL", Entero},
           {"FOLIO_POLIZA", Texto, kFolioPoliza},
           {"FREC", Entero},
           {"FECHA_CON", Fecha},
           {"FECHA_MOV", Fecha},
           {"COD_OPER", Entero},
       },
       {{"IX_tblMovimxPoliza_1", {"FOLIO_MOV", "COD_OPER", "CONCEPTO"}},
        {"IX_tblMovimxPoliza_2", {"FOLIO_POL"}},
        {"IX_tblMovimxPoliza_3", {"FOLIO_POLIZA"}},
        {"IX_tblMovimxPoliza_4", {"FECHA_MOV"}}}},

      {"tblBitacoraPolizas",
       {
           {"MODULO", Entero},
           {"COD_OPER", Entero},
           {"COD_CONCEP", Texto, kCodigo},
           {"FEC_MOVIM", Fecha},
           {"FOL_POLIZA", Texto, kFolioPoliza},
           {"TIP_POLIZA", Texto, kCodigo},
           {"FEC_GENERA", Fecha},
           {"HR_GENERA", Hora},
           {"SUMA_DEBE", Dinero},
           {"SUMA_HABER", Dinero},
           {"USU_GENERA", Texto, kFolio},
           {"USU_ACTUALIZO", Texto, kFolio},
           {"IMPRESA", Entero},
           {"ESTATUS", Entero},
       },
       {{"IX_tblBitacoraPolizas_1", {"MODULO", "COD_OPER", "COD_CONCEP", "FOL_POLIZA"}}}},

      // ---------------------------------------------------------------
      // Export format: the single row of the file layout
      // ---------------------------------------------------------------
      {"tblParametrosForm",
       {
           {"NO_REN", Entero},          {"SEP_COM", Logico},         {"SEP_DAT", Texto, kCodigo},
           {"DEB_HAB", Entero},         {"CHAR_UNO", Texto, 1},      {"CHAR_DOS", Texto, 1},
           {"REN_FOL", Entero},         {"REN_FEC", Entero},         {"REN_TIP", Entero},
           {"REN_CTA", Entero},         {"REN_CON", Entero},         {"REN_IMP", Entero},
           {"REN2_FOL", Entero},        {"REN2_FEC", Entero},        {"REN2_TIP", Entero},
           {"REN2_CTA", Entero},        {"REN2_CON", Entero},        {"REN2_IMP", Entero},
           {"F_FECHA", Texto, kCodigo}, {"LON_FIJA", Logico},        {"LON_FOL", Entero},
           {"LON_FEC", Entero},         {"LON_TIP", Entero},         {"LON_CTA", Entero},
           {"LON_CON", Entero},         {"LON_DEB", Entero},         {"LON_HAB", Entero},
           {"AL_FOL", Entero},          {"AL_FEC", Entero},          {"AL_TIP", Entero},
           {"AL_CTA", Entero},          {"AL_CON", Entero},          {"AL_DEB", Entero},
           {"AL_HAB", Entero},          {"FORM_CTA", Texto, kFolio}, {"CHAR_SEP", Texto, 1},
           {"CERO_IZQ", Logico},
       }},

      // ---------------------------------------------------------------
      // Sources of sales: tickets, cash movements, customer charges and
      // credits, customer returns. Operations 1 to 9.
      // ---------------------------------------------------------------
      {"tblGralVentas",
       {
           {"REF_DOC", Texto, kFolio},
           {"FEC_DOC", Fecha},
           {"CREDITO", Entero},
           {"STS_DOC", Entero},
           {"SUB_DOC", Dinero},
           {"IMPTO_INT", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblGralVentas_1", {"FEC_DOC"}}, {"IX_tblGralVentas_2", {"REF_DOC"}}}},

      // The exchange rate lives on the line only: the statements that join
      // the header name TIP_CAM without a table.
      {"tblRenVentas",
       {
           {"REF_DOC", Texto, kFolio},
           {"COD1_ART", Texto, kArticulo},
           {"CAN_ART", Decimal},
           {"PCIO_VEN", Dinero},
           {"COS_VEN", Dinero},
           {"TIP_CAM", Decimal},
           {"COS_PEPS", Dinero},
           {"COD1_IMP", Entero},
           {"IMP1_REG", Dinero},
           {"COD2_IMP", Entero},
           {"IMP2_REG", Dinero},
       },
       {{"IX_tblRenVentas_1", {"REF_DOC"}}}},

      // Datum 97 reads this table under the filter of the sales, hence
      // CREDITO and STS_DOC.
      {"tblAuxCaja",
       {
           {"REF_DOC", Texto, kFolio},
           {"FEC_DOC", Fecha},
           {"CON_CEP", Texto, kCodigo},
           {"COD_CON", Texto, kCodigo},
           {"CREDITO", Entero},
           {"STS_DOC", Entero},
           {"COD_FRP", Entero},
           {"IMP_MBA", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblAuxCaja_1", {"FEC_DOC"}}, {"IX_tblAuxCaja_2", {"REF_DOC"}}}},

      {"tblEncCargosAbonos",
       {
           {"FOL_DOC", Texto, kFolio},
           {"FEC_DOC", Fecha},
           {"COD_CON", Texto, kCodigo},
           {"COD_STS", Entero},
           {"CON_GRL", Texto, kCodigo},
           {"CON_CEP", Texto, kCodigo},
           {"IMP_DOC", Dinero},
           {"IVA_DOC", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblEncCargosAbonos_1", {"FEC_DOC"}}, {"IX_tblEncCargosAbonos_2", {"FOL_DOC"}}}},

      {"tblRenCargosAbonos",
       {
           {"FOL_DOC", Texto, kFolio},
       },
       {{"IX_tblRenCargosAbonos_1", {"FOL_DOC"}}}},

      {"tblEncDevolucion",
       {
           {"FOL_DEV", Texto, kFolio},
           {"FEC_DEV", Fecha},
           {"COD_CON", Texto, kCodigo},
           {"TIP_DEV", Entero},
           {"COD_STS", Entero},
           {"CONTAB", Entero},
       },
       {{"IX_tblEncDevolucion_1", {"FEC_DEV"}}, {"IX_tblEncDevolucion_2", {"FOL_DEV"}}}},

      {"tblRenDevolucion",
       {
           {"FOL_DEV", Texto, kFolio},
           {"CAN_DEV", Decimal},
           {"COS_ART", Dinero},
       },
       {{"IX_tblRenDevolucion_1", {"FOL_DEV"}}}},

      // ---------------------------------------------------------------
      // Sources of inventory: store movements. Operations 10, 11, 29.
      // ---------------------------------------------------------------
      {"tblGralAlmacen",
       {
           {"REF_MOV", Texto, kFolio},
           {"FEC_MOV", Fecha},
           {"CON_CEP", Texto, kCodigo},
           {"COD_STS", Entero},
           {"CON_GRL", Texto, kCodigo},
           {"COS_TOT", Dinero},
           {"TIP_CAM", Decimal},
           {"CONTAB", Entero},
       },
       {{"IX_tblGralAlmacen_1", {"FEC_MOV"}}, {"IX_tblGralAlmacen_2", {"REF_MOV"}}}},

      {"tblRenAlmacen",
       {
           {"REF_MOV", Texto, kFolio},
           {"COD1_ART", Texto, kArticulo},
           {"CAN_REN", Decimal},
           {"COS_UNI", Dinero},
           {"TIP_CAM", Decimal},
       },
       {{"IX_tblRenAlmacen_1", {"REF_MOV"}}}},

      // ---------------------------------------------------------------
      // Sources of purchases: receipts, returns to suppliers, payables.
      // Operations 12 to 21.
      // ---------------------------------------------------------------
      {"tblComprasEnc",
       {
           {"FOL_DOC", Texto, kFolio},
           {"FEC_DOC", Fecha},
           {"COD_TIP", Entero},
           {"COD_ESTATUS", Entero},
           {"TIP_CAM", Decimal},
           {"IMP_DOC", Dinero},
           {"DES_DOC", Dinero},
           {"SUB_DOC", Dinero},
           {"IVA_DOC", Dinero},
           {"CARGO_TOTAL", Dinero},
           {"CARGO_IMPTO", Dinero},
           {"RETEN_TOT", Dinero},
           {"TOT_DOC", Dinero},
           {"TOT_PROV", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblComprasEnc_1", {"FEC_DOC"}}, {"IX_tblComprasEnc_2", {"FOL_DOC"}}}},

      // No TIP_CAM here: the joins with the header name it without a table.
      {"tblComprasRen",
       {
           {"FOL_DOC", Texto, kFolio},
           {"COD1_ART", Texto, kArticulo},
           {"CAN_ART", Decimal},
           {"COS_UNI", Dinero},
           {"COS_COM", Dinero},
           {"IMP_ARANCEL", Dinero},
           {"DESCUENTO1", Decimal},
           {"DESCUENTO2", Decimal},
           {"DESCUENTO3", Decimal},
           {"DESCUENTO4", Decimal},
           {"DESCUENTO5", Decimal},
           {"DESCUENTO6", Decimal},
       },
       {{"IX_tblComprasRen_1", {"FOL_DOC"}}}},

      {"tblDevolucionEnc",
       {
           {"FOL_DEV", Texto, kFolio},
           {"FEC_DEV", Fecha},
           {"COD_TIP", Entero},
           {"COD_ESTATUS", Entero},
           {"TIP_CAM", Decimal},
           {"SUB_DEV", Dinero},
           {"IVA_DEV", Dinero},
           {"TOT_DEV", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblDevolucionEnc_1", {"FEC_DEV"}}, {"IX_tblDevolucionEnc_2", {"FOL_DEV"}}}},

      {"tblDevolucionRen",
       {
           {"FOL_DEV", Texto, kFolio},
           {"COD1_ART", Texto, kArticulo},
           {"CAN_ART", Decimal},
           {"COS_UNI", Dinero},
           {"TIP_CAM", Decimal},
           {"IMP1_IMP", Dinero},
           {"IMP2_IMP", Dinero},
       },
       {{"IX_tblDevolucionRen_1", {"FOL_DEV"}}}},

      // The stamp of operations 20 and 21 names COD_CON, their concept
      // column is CON_CEP: both are kept.
      {"tblCxPEnc",
       {
           {"FOL_DOC", Texto, kFolio},
           {"FEC_DOC", Fecha},
           {"CON_CEP", Texto, kCodigo},
           {"CON_GRL", Texto, kCodigo},
           {"COD_STS", Entero},
           {"COD_CON", Texto, kCodigo},
           {"IMP_DOC", Dinero},
           {"IVA_DOC", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblCxPEnc_1", {"FEC_DOC"}}, {"IX_tblCxPEnc_2", {"FOL_DOC"}}}},

      {"tblCxPRen",
       {
           {"FOL_DOC", Texto, kFolio},
       },
       {{"IX_tblCxPRen_1", {"FOL_DOC"}}}},

      // ---------------------------------------------------------------
      // Sources of expenses and treasury: expenses, petty cash refunds,
      // income and outgoings of the banks. Operations 22 to 28 and 30.
      // ---------------------------------------------------------------
      {"tblGastosEnc",
       {
           {"FOL_MOV", Texto, kFolio},
           {"FEC_MOV", Fecha},
           {"CON_CEP", Texto, kCodigo},
           {"COD_CON", Texto, kCodigo},
           {"COD_ESTATUS", Entero},
           {"IMP_MOV", Dinero},
           {"IVA_MOV", Dinero},
           {"RET_TOT", Dinero},
           {"RET_ISRTOT", Dinero},
           {"CONTAB", Entero},
       },
       {{"IX_tblGastosEnc_1", {"FEC_MOV"}}, {"IX_tblGastosEnc_2", {"FOL_MOV"}}}},

      {"tblGastosRen",
       {
           {"FOL_MOV", Texto, kFolio},
       },
       {{"IX_tblGastosRen_1", {"FOL_MOV"}}}},

      // The key of a refund is the cheque, its lines hang from FOL_DOC.
      {"tblReposicionCaja",
       {
           {"FOL_CHEQUE", Texto, kFolio},
           {"FEC_DOC", Fecha},
           {"FOL_DOC", Texto, kFolio},
           {"COD_STS", Entero},
           {"CONTAB", Entero},
       },
       {{"IX_tblReposicionCaja_1", {"FEC_DOC"}},
        {"IX_tblReposicionCaja_2", {"FOL_CHEQUE"}},
        {"IX_tblReposicionCaja_3", {"FOL_DOC"}}}},

      {"tblReposicionCajaMov",
       {
           {"FOL_DOC", Texto, kFolio},
           {"CON_MOV", Texto, kCodigo},
           {"IMP_MOV", Dinero},
           {"IMPTO_MOV", Decimal},
           {"POR_RETE", Decimal},
           {"RET_ISR", Decimal},
       },
       {{"IX_tblReposicionCajaMov_1", {"FOL_DOC"}}}},

      {"tblIngreEgre",
       {
           {"FOL_MOV", Texto, kFolio},
           {"FEC_MOV", Fecha},
           {"CON_CEP", Texto, kCodigo},
           {"CON_GRL", Texto, kCodigo},
           {"COD_ESTATUS", Entero},
           {"TIPO_APN", Entero},
           {"NUM_CTA", Texto, kCuenta},
           {"IMP_MOV", Dinero},
           {"TIP_CAM", Decimal},
           {"CONTAB", Entero},
       },
       {{"IX_tblIngreEgre_1", {"FEC_MOV"}}, {"IX_tblIngreEgre_2", {"FOL_MOV"}}}},

      // ---------------------------------------------------------------
      // Taxes and forms of payment
      // ---------------------------------------------------------------
      {"tblImpuestos",
       {
           {"COD_IMP", Entero},
           {"DES_IMP", Texto, kNombre},
           {"POR_IMP", Decimal},
           {"GRAVA_IMP", Entero},
           {"INTEGRA_IMP", Entero},
           {"TIPO_IMP", Entero},
           {"IMPTE_IMP", Entero},
           {"EN_IMPORTE", Entero},
           {"CLAVE_CFDI", Texto, kCodigo},
       },
       {{"IX_tblImpuestos_1", {"COD_IMP"}}}},

      {"tblTipoImpuesto",
       {
           {"COD_TIPO", Entero},
           {"DES_TIPO", Texto, kNombre},
           {"CLAVE_CFDI", Texto, kCodigo},
       }},

      {"tblFormasPago",
       {
           {"COD_FRP", Entero},
           {"DES_FRP", Texto, kNombre},
           {"COD_PAG", Entero},
           {"AUT_FRP", Entero},
           {"REF_FRP", Entero},
           {"ACP_CAM", Entero},
           {"MAX_CAN", Entero},
           {"CAR_FRP", Entero},
           {"DENOM", Entero},
           {"FRP_APAR", Entero},
           {"RUTA", Texto, kRuta},
           {"CAR_MAX", Entero},
           {"APLICA_PROMO", Entero},
           {"SERV_ME", Entero},
           {"SAT_MPAGO", Texto, kNombre},
           {"CLAVE_SAT", Texto, kCodigo},
       },
       {{"IX_tblFormasPago_1", {"COD_FRP"}}}},

      // ---------------------------------------------------------------
      // Articles, their groupings, units and prices
      // ---------------------------------------------------------------
      {"tblCatArticulos",
       {
           {"COD1_ART", Texto, kArticulo},
           {"DES1_ART", Texto, kDescripcion},
           {"DES2_ART", Texto, kDescripcion},
           {"COD_MON", Entero},
           {"PTO_MAR", Decimal},
           {"COD_IMP", Entero},
           {"IMP2_ART", Entero},
           {"EXI_ACT", Decimal},
           {"ARCHIVO", Texto, kRuta},
           {"ART_PAQ", Entero},
           {"FEC_UCO", Fecha},
           {"FEC_VEN", Fecha},
           {"FEC_ING", Fecha},
           {"FEC_UCP", Fecha},
           {"COD_TIPO", Entero},
           {"ES_SERVICIO", Logico},
           {"COD_AIM", Entero},
           {"REST_PTOS", Logico},
           {"COD_EMPRESA", Entero},
           {"VTA_SOLOBASE", Logico},
           {"ART_CAD", Logico},
           {"UND_CFDI", Entero},
           {"EQV_IMP1", Entero},
           {"EQV_IMP2", Entero},
           {"CVE_CFDI", Texto, kFolio},
       },
       {{"IX_tblCatArticulos_1", {"COD1_ART"}}}},

      {"tblGpoArticulos",
       {
           {"COD1_ART", Texto, kArticulo},
           {"COD_GPO", Entero},
           {"COD_AGR", Entero},
       },
       {{"IX_tblGpoArticulos_1", {"COD1_ART"}}, {"IX_tblGpoArticulos_2", {"COD_AGR"}}}},

      {"tblAgrupacionArt",
       {
           {"COD_GPO", Entero},
           {"DES_GPO", Texto, kNombre},
       },
       {{"IX_tblAgrupacionArt_1", {"COD_GPO"}}}},

      {"tblCatAgrupacionArt",
       {
           {"COD_AGR", Entero},
           {"COD_GPO", Entero},
           {"DES_AGR", Texto, kNombre},
           {"META_VTA", Dinero},
           {"BLOQ_CAMBIO", Entero},
           {"BLOQ_PCIO", Entero},
       },
       {{"IX_tblCatAgrupacionArt_1", {"COD_AGR"}}, {"IX_tblCatAgrupacionArt_2", {"COD_GPO"}}}},

      {"tblUndCosPreArt",
       {
           {"COD_UND", Texto, kCodigo},
           {"COD1_ART", Texto, kArticulo},
           {"EQV_UND", Decimal},
           {"PRE_UND", Dinero},
           {"PRE_IVA", Dinero},
           {"CVE_OFR", Texto, kCodigo},
           {"COS_PRO", Dinero},
           {"COS_REP", Dinero},
           {"COS_UCO", Dinero},
           {"IMPTO_IMP", Dinero},
           {"COD_BARRAS", Texto, kNombre},
           {"PCIO_PUNTOS", Decimal},
       },
       {{"IX_tblUndCosPreArt_1", {"COD1_ART"}}}},

      {"tblPrecios",
       {
           {"COD1_ART", Texto, kArticulo},
           {"COD_UND", Texto, kCodigo},
           {"NUM_LISTA", Entero},
           {"PRE_LISTA", Dinero},
           {"PRE_IVA", Dinero},
       },
       {{"IX_tblPrecios_1", {"COD1_ART"}}}},

      {"tblPrecVolum",
       {
           {"COD1_ART", Texto, kArticulo},
       },
       {{"IX_tblPrecVolum_1", {"COD1_ART"}}}},

      {"tblAgrPrecios",
       {
           {"COD_AGR", Entero},
       },
       {{"IX_tblAgrPrecios_1", {"COD_AGR"}}}},

      {"tblArtNoEncontrado",
       {
           {"COD_ART", Texto, kArticulo},
       }},

      {"tblCodArticuloExtra",
       {
           {"COD_ART", Texto, kArticulo},
           {"CODART_EXTRA", Texto, kArticulo},
       }},

      // ---------------------------------------------------------------
      // Customers and banks
      // ---------------------------------------------------------------
      {"tblCatClientes",
       {
           {"COD_CLI", Texto, kFolio},
           {"COD_CID", Texto, kCodigo},
           {"COD_EST", Texto, kCodigo},
       },
       {{"IX_tblCatClientes_1", {"COD_CLI"}}}},

      {"tblBancos",
       {
           {"COD_BANCO", Texto, kCodigo},
           {"IMAGEN_BANCO", Texto, kRuta},
       }},

      // ---------------------------------------------------------------
      // Profiles, permissions and the menus of the family's modules
      // ---------------------------------------------------------------
      {"tblPerfiles",
       {
           {"COD_PERFIL", Entero},
           {"DES_PERFIL", Texto, kNombre},
       }},

      {"tblPerfilPermisos",
       {
           {"COD_PERFIL", Entero},        {"PV_CAMBIARPRECIO", Logico},
           {"PV_LIMPIARSALIR", Logico},   {"PV_CANCELARVEN", Logico},
           {"PV_DESCUENTO", Logico},      {"PV_REIMPRIMIR", Logico},
           {"PV_BORRARESPERA", Logico},   {"PV_FORMASPAGO", Logico},
           {"PV_AUTORIZARCXC", Logico},   {"PV_AUTORIZARALM", Logico},
           {"FF_PWCOMANDAS", Logico},     {"CP_TRASPRESUP", Logico},
           {"CP_AUTORIZAREQS", Logico},   {"CP_AUTORIZAOCOM", Logico},
           {"CP_AUTORIZAREMS", Logico},   {"CP_AUTORIZARECP", Logico},
           {"CP_SURTIRREQS", Logico},     {"CP_AUTORIZARCXP", Logico},
           {"GT_AUTORIZARGTOS", Logico},  {"GT_AUTORIZARTESOR", Logico},
           {"GT_CANCELARCONCIL", Logico}, {"GT_REABRIRCONCIL", Logico},
           {"PV_BORRARMODULO", Logico},   {"CP_BORRARMODULO", Logico},
           {"GT_BORRARMODULO", Logico},   {"PV_BLOQUEARAPAR", Logico},
           {"FF_MOVSMESACUENTA", Logico}, {"CP_COMPLEMENTO", Logico},
       }},

      {"tblPlantillaMenus",
       {
           {"COD_PERFIL", Entero},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
           {"TITULO_OPCION", Texto, kDescripcion},
           {"ES_RAMA_DE", Entero},
           {"MODULO_EDICION", Entero},
       },
       {{"IX_tblPlantillaMenus_1", {"COD_PERFIL", "MODULO_EDICION"}}}},

      // One table of granted items per module edition, all alike.
      {"tblMenusPV",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusPV_1", {"COD_USUARIO"}}}},
      {"tblMenusFF",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusFF_1", {"COD_USUARIO"}}}},
      {"tblMenusCP",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusCP_1", {"COD_USUARIO"}}}},
      {"tblMenusGT",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusGT_1", {"COD_USUARIO"}}}},
      {"tblMenusVR",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusVR_1", {"COD_USUARIO"}}}},
      {"tblMenusED",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusED_1", {"COD_USUARIO"}}}},
      {"tblMenusCA",
       {
           {"COD_USUARIO", Texto, kFolio},
           {"ORDEN_MENU", Entero},
           {"NOMBRE_OPCION", Texto, kNombre},
       },
       {{"IX_tblMenusCA_1", {"COD_USUARIO"}}}},

      // ---------------------------------------------------------------
      // Parameters of the point of sale: the single row and the small
      // tables beside it
      // ---------------------------------------------------------------
      {"tblParametrosGenerales",
       {
           {"COD_SUCU", Texto, kCodigo},
           {"FACT_MOSTRA", Logico},
           {"FACT_POREMP", Logico},
           {"NOTA_FACTURA", Logico},
           {"CAMP_REDN", Entero},
           {"CAD_ACT", Logico},
           {"DIAS_CAD", Entero},
           {"HORAS_CAD", Entero},
           {"LIM_RENVTA", Entero},
           {"PROM_TOLERA", Entero},
           {"MOD_FECPED", Logico},
           {"CP_RESTPRES", Logico},
           {"LDV_CLIENTE", Logico},
           {"LDA", Logico},
           {"LDC_TIPODOC", Logico},
           {"LDC_MONEDA", Logico},
           {"LDC_SUCURSAL", Logico},
           {"LDC_PRESUP", Logico},
           {"TC_SERVICIO", Entero},
           {"TC_IDSITIO", Texto, kNombre},
           {"TC_KEY", Texto, kDescripcion},
           {"TC_EMPRESA", Texto, kNombre},
           {"TA_ACT", Logico},
           {"TA_AGR", Entero},
           {"TA_IMPTO", Entero},
           {"TA_GRUPO", Entero},
           {"TA_CADENA", Entero},
           {"TA_TIENDA", Entero},
           {"TA_URL", Texto, kRuta},
           {"TA_FTP", Texto, kRuta},
           {"CFD_FACT", Entero},
           {"CONX_CXC", Texto, kRuta},
           {"BD_CXC", Texto, kNombre},
           {"CONX_AC", Texto, kRuta},
           {"BD_AC", Texto, kNombre},
           {"CONX_DP", Texto, kRuta},
           {"BD_DP", Texto, kNombre},
           {"TC_URL", Texto, kRuta},
           {"FE_DESCTO", Logico},
           {"FE_ORIGEN", Entero},
           {"FE_DESCUND", Logico},
           {"CP_PREVIO", Entero},
           {"CP_RECPREV", Logico},
           {"LOT_SAL", Entero},
           {"FE_LOT", Entero},
           {"FE_CAD", Entero},
           {"PRECIO_BASE", Entero},
           {"PRECIO_DECIMAL", Entero},
           {"PRECIO_TRUNCAR", Entero},
           {"REP_NOMEMP", Logico},
           {"REP_NOMCOM", Logico},
           {"PV_PRINTREG", Logico},
           {"PV_COSTOREP", Logico},
           {"FE_FOLIONUM", Logico},
           {"FE_RUTAXML", Texto, kRuta},
           {"FE_VENCERT", Fecha},
           {"FE_WEBSERVURL", Texto, kRuta},
           {"FE_EMPRESA", Texto, kNombre},
           {"FE_DOMINIO", Texto, kDescripcion},
           {"FE_USUARIO", Texto, kNombre},
           {"FE_CONTRASENA", Texto, kDescripcion},
           {"FE_EMAILPV", Texto, kDescripcion},
           {"FE_MENSAJE", Texto, kRuta},
           {"ACT_PRECOM", Entero},
           {"PREXLISTA", Entero},
           {"UND_PRECOM", Entero},
           {"ACT_CIN", Entero},
           {"CONX_CIN", Texto, kRuta},
           {"OBLIGA_BASC", Entero},
           {"FE_LLAVE", Texto, kRuta},
           {"FE_CERTIFICADO", Texto, kRuta},
           {"FE_ZONAHORA", Texto, kDescripcion},
           {"FE_PAC", Entero},
           {"FE_LLAVEPWD", Texto, kDescripcion},
           {"FE_PFX", Texto, kRuta},
           {"CNX_TVE", Texto, kNombre},
           {"IMPTO_SER", Entero},
           {"FF_MESERO", Logico},
           {"FF_NUMPERS", Logico},
           {"FE_CANCELASAT", Logico},
           {"FF_SINMESERO", Logico},
           {"FF_ORDENTOT", Logico},
           {"TVE_CODPROV", Entero},
           {"ME_CODPROV", Entero},
           {"CP_PLAZOBACK", Entero},
           {"PV_LOTCAD", Logico},
           {"REM_CODPROV", Entero},
           {"INV_SUCPPAL", Logico},
           {"FE_VERSION", Entero},
           {"FE_ACTUAL", Entero},
           {"FE_ACTIEPS", Logico},
       }},

      {"tblParamPropinas",
       {
           {"INCLUIR_TIPS", Logico},
           {"PORCENT_TIPS", Decimal},
           {"LIMINF_TIPS", Dinero},
       }},

      {"tblCampRedondeo",
       {
           {"COD_CAMP", Entero},
           {"NOM_CAMP", Texto, kNombre},
       }},

      {"tblComEstatus",
       {
           {"COD_ESTATUS", Entero},
           {"DES_ESTATUS", Texto, kNombre},
       }},

      // Purchase previews, which a change of the purchase document clears.
      {"tblPrevioCompraEnc",
       {
           {"FOLIO", Texto, kFolio},
       }},

      {"tblPrevioCompraRen",
       {
           {"FOLIO", Texto, kFolio},
       }},

      {"tblDifRecepcion",
       {
           {"FOLIO", Texto, kFolio},
       }},

      // ---------------------------------------------------------------
      // Electronic services: portal, registers, providers, card terminals,
      // airtime and loyalty
      // ---------------------------------------------------------------
      {"tblServiciosElec",
       {
           {"TVE_USUARIO", Texto, kNombre},
           {"TVE_PASSWORD", Texto, kDescripcion},
       }},

      {"tblCajas",
       {
           {"COD_CAJ", Entero},
           {"USUARIO_SER", Texto, kNombre},
           {"PASWD_SER", Texto, kDescripcion},
           {"TA_CLAVEPV", Texto, kNombre},
           {"TA_EQUIPO", Texto, kNombre},
           {"TA_USUARIO", Texto, kNombre},
           {"TA_PASSWORD", Texto, kDescripcion},
           {"TA_USUARIO2", Texto, kNombre},
           {"TA_PASSWORD2", Texto, kDescripcion},
       },
       {{"IX_tblCajas_1", {"COD_CAJ"}}}},

      {"tblCajasTVE",
       {
           {"COD_CAJA", Entero},
           {"COMERCIO", Texto, kNombre},
           {"SUCURSAL", Texto, kNombre},
       }},

      {"tblCajasRemesas",
       {
           {"COD_CAJA", Entero},
           {"USUARIO_REM", Texto, kNombre},
           {"COMERCIO_REM", Texto, kNombre},
           {"CORRESP_REM", Texto, kNombre},
       }},

      {"tblProveedoresSE",
       {
           {"COD_PROVSE", Entero},
           {"DES_PROVSE", Texto, kNombre},
       }},

      {"tblProveedoresTC",
       {
           {"COD_PROVTC", Entero},
           {"DES_PROVTC", Texto, kNombre},
           {"SITIO_PROVTC", Texto, kRuta},
           {"RESP_PROVTC", Texto, kRuta},
       }},

      {"tblTcPromociones",
       {
           {"COD_TCPROMO", Entero},
           {"DES_TCPROMO", Texto, kNombre},
           {"ACTIVA_PROMO", Logico},
           {"MIN_TCPROMO", Dinero},
           {"NUM_PARCIAL", Entero},
       }},

      {"tblTcTerminales",
       {
           {"COD_TERMINAL", Entero},
           {"NUM_TERMINAL", Texto, kFolio},
           {"COD_PROVTC", Entero},
           {"FOLIO_TERMINAL", Texto, 20},
           {"ID_CLIENTE", Texto, kNombre},
       },
       {{"IX_tblTcTerminales_1", {"NUM_TERMINAL"}}}},

      {"tblTcTerminalPromo",
       {
           {"COD_TERMINAL", Entero},
           {"COD_TCPROMO", Entero},
       }},

      {"tblTcTerminalCaja",
       {
           {"COD_TERMINAL", Entero},
       }},

      {"tblEmpresasTA",
       {
           {"COD_EMPRESA", Entero},
           {"NOM_EMPRESA", Texto, kNombre},
           {"IMAGEN_EMPRESA", Texto, kRuta},
       }},

      {"tblMontosTA",
       {
           {"COD_EMPRESA", Entero},
           {"MONTO_TA", Dinero},
           {"CLAVE_TA", Texto, kCodigo},
           {"DATOS_TA", Texto, kNombre},
           {"PLAN_TA", Texto, kNombre},
       }},

      {"tblParamPuntos",
       {
           {"PTO_ACTIVO", Logico},
           {"EN_LINEA", Logico},
           {"URL_PUNTOS", Texto, kRuta},
       }},

      {"tblPuntos",
       {
           {"ACTIVO", Logico},
           {"TOKEN_LOMARTA", Texto, kDescripcion},
           {"PROMO_LOMARTA", Entero},
       }},

      // ---------------------------------------------------------------
      // Tables of sibling modules that the company upgrade touches
      // ---------------------------------------------------------------
      {"tblFacturaElectronica",
       {
           {"CADENA_ORIGINAL", Memo},
       }},

      // The upgrade renames this column on MySQL, and takes a failure as a
      // sign that the rename was done before.
      {"tblConfiguracionImpresion",
       {
           {"Nombre_Empresa", Entero}, // "Nombre_Compañia" in databases of before the rename
       }},

      {"tblGruposPVEnc",
       {
           {"COD_GPO", Entero},
           {"DES_GPO", Texto, kNombre},
           {"ORD_GPO", Entero},
           {"IMP_GPO", Entero},
           {"COD_CARTA", Entero},
       }},
  };
  return tablas;
}

const std::vector<Tabla> &TablasGeneral() {
  static const std::vector<Tabla> tablas = {
      // The list of companies. NUM_EMP is given by the database at insertion
      // and read back with MAX.
      {"tblEmpresas",
       {
           {"NUM_EMP", Contador},
           {"NOM_EMP", Texto, kDescripcion},
           {"NOM_COM", Texto, kDescripcion},
           {"DIR1_EMP", Texto, 60},
           {"RFC1_EMP", Texto, kRfc},
           {"RFC2_EMP", Texto, kRfc},
           {"RFC3_EMP", Texto, kRfc},
           {"DESCRIP1", Texto, kDescripcion},
           {"DESCRIP2", Texto, kDescripcion},
           {"DESCRIP3", Texto, kDescripcion},
           {"TEL1_EMP", Texto, 30},
           {"TEL2_EMP", Texto, 30},
           {"TEL3_EMP", Texto, 30},
           {"TEL4_EMP", Texto, 30},
           {"CONEXION", Texto, kRuta},
           {"MOTORDEDATOS", Entero},
           {"NOMBREBASEDATOS", Texto, kNombre},
           {"IMAGEN_EMP", Texto, kRuta},
           {"IVA_GLOBAL", Entero},
           {"PORC_GLOBAL", Decimal},
           {"CONX_CONSULTORIO", Texto, kRuta},
           {"BD_CONSULTORIO", Texto, kNombre},
           {"CONX_AC", Texto, kRuta},
           {"BD_AC", Texto, kNombre},
           {"CONX_DP", Texto, kRuta},
           {"BD_DP", Texto, kNombre},
       },
       {{"IX_tblEmpresas_1", {"NUM_EMP"}}}},
  };
  return tablas;
}

const std::vector<Tabla> &TablasReferencia() {
  static const std::vector<Tabla> tablas = {
      Version(),

      // The data dictionary: a rule row with CAMPO_ESTBD names a column by
      // its number here, and the column names its table.
      {"tblCamposTabla",
       {
           {"Numero", Entero},
           {"Nombre", Texto, kNombre},
           {"Tabla", Entero},
       },
       {{"IX_tblCamposTabla_1", {"Numero"}}}},

      {"tblTablas",
       {
           {"Numero", Entero},
           {"Nombre", Texto, kNombre},
       },
       {{"IX_tblTablas_1", {"Numero"}}}},
  };
  return tablas;
}

int Largo(const char *tabla, const char *columna) {
  for (const Tabla &t : TablasEmpresa()) {
    if (std::string_view(t.nombre) != tabla)
      continue;
    for (const Columna &c : t.columnas)
      if (std::string_view(c.nombre) == columna)
        return c.tipo == Tipo::Texto ? c.largo : 0;
  }
  return 0;
}

} // namespace esquema
