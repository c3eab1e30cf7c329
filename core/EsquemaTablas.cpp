// The data table of the schema: every table, index and view of the company
// catalog, the shared catalog vkcomun and the accounting catalog.
//
// Columns are listed as far as the library or the suite's built-in classes read
// or write them. Each non-key column has a default, so that a row inserted by a
// program that knows only some of the columns is still complete. NULL is the
// default only where the readers give NULL a meaning of its own ("none",
// "unknown", "fall back to another value"); everywhere else it is 0 or ''.
//
// Names keep the spelling the suite uses; SQL matches them without regard to
// case, so one entry per column is enough.
#include "Esquema.h"

#include <QString>

namespace vk::esquema {

namespace {

// Catalog of the company: documents, masters and settings.
std::vector<Tabla> tablasEmpresa() {
    return {
        // Sales invoice header. The lines of an invoice are the lines of the
        // delivery notes that point at it (Cav_IdFactura).
        {"Fav",
         Catalogo::Empresa,
         {
             {"Fav_Id", Tipo::Clave},
             {"Fav_Serie", Tipo::Texto},
             {"Fav_Numero", Tipo::Entero},
             {"Fav_Fecha", Tipo::Fecha},
             {"Fav_Tipo", Tipo::Entero},
             {"Fav_IdUsu", Tipo::Id},
             {"fav_idcli", Tipo::Id},
             {"fav_CLICOD", Tipo::Entero},
             {"Fav_Clinom", Tipo::Texto},
             {"Fav_CliDoc", Tipo::Texto},
             {"Fav_IdFco", Tipo::Id},
             // 0 or less: the invoice's own address columns below.
             {"Fav_IdDir", Tipo::Id},
             {"Fav_Sg", Tipo::Texto},
             {"Fav_Nombre", Tipo::Texto},
             // NULL when the address has no number.
             {"Fav_Num", Tipo::Entero, Defecto::Nulo},
             {"Fav_Escalera", Tipo::Texto},
             {"Fav_Piso", Tipo::Texto},
             {"Fav_Puerta", Tipo::Texto},
             {"Fav_Cp", Tipo::Texto},
             {"Fav_Pais", Tipo::Texto},
             {"Fav_Provincia", Tipo::Entero},
             {"Fav_Poblacion", Tipo::Texto},
             // NULL when there are no remarks; a blank is kept as a blank.
             {"Fav_Obs", Tipo::Texto, Defecto::Nulo},
             {"Fav_Fatencion", Tipo::Texto},
             {"Fav_Bruto", Tipo::Dinero},
             {"Fav_Dto1", Tipo::Porcentaje},
             {"Fav_ImpDto1", Tipo::Dinero},
             {"Fav_Bruto1", Tipo::Dinero},
             {"Fav_Dto2", Tipo::Porcentaje},
             {"Fav_ImpDto2", Tipo::Dinero},
             {"Fav_ImpDtoPie1", Tipo::Dinero},
             // Three VAT slots. An account is NULL while its amount is 0.
             {"Fav_Biva1", Tipo::Dinero},
             {"Fav_Iva1", Tipo::Porcentaje},
             {"Fav_ImpIva1", Tipo::Dinero},
             {"Fav_Rec1", Tipo::Porcentaje},
             {"Fav_ImpRec1", Tipo::Dinero},
             {"Fav_CtaIva1", Tipo::Texto, Defecto::Nulo},
             {"Fav_CtaRec1", Tipo::Texto, Defecto::Nulo},
             {"Fav_Biva2", Tipo::Dinero},
             {"Fav_Iva2", Tipo::Porcentaje},
             {"Fav_ImpIva2", Tipo::Dinero},
             {"Fav_Rec2", Tipo::Porcentaje},
             {"Fav_ImpRec2", Tipo::Dinero},
             {"Fav_CtaIva2", Tipo::Texto, Defecto::Nulo},
             {"Fav_CtaRec2", Tipo::Texto, Defecto::Nulo},
             {"Fav_Biva3", Tipo::Dinero},
             {"Fav_Iva3", Tipo::Porcentaje},
             {"Fav_ImpIva3", Tipo::Dinero},
             {"Fav_Rec3", Tipo::Porcentaje},
             {"Fav_ImpRec3", Tipo::Dinero},
             {"Fav_CtaIva3", Tipo::Texto, Defecto::Nulo},
             {"Fav_CtaRec3", Tipo::Texto, Defecto::Nulo},
             // Income tax withholding.
             {"Fav_Ret", Tipo::Porcentaje},
             {"Fav_ImpRet", Tipo::Dinero},
             {"Fav_CtaRet", Tipo::Texto, Defecto::Nulo},
             {"Fav_Total", Tipo::Dinero},
             // Non-fiscal retention: percent, amount, mode (0 bases, 1 total).
             {"Fav_PRetNf", Tipo::Porcentaje},
             {"Fav_IRetNf", Tipo::Dinero},
             {"Fav_ModRet", Tipo::Entero},
             {"Fav_Liquido", Tipo::Dinero},
             {"Fav_IdLavManual", Tipo::Id},
             {"Fav_ImpDifManual", Tipo::Dinero},
             {"Fav_CtaCobro", Tipo::Texto},
             {"Fav_CtaCompensa", Tipo::Texto},
             // Accounting state: 0 not posted.
             {"Fav_Conex", Tipo::Entero},
             {"Fav_DocCont", Tipo::Texto},
             {"Fav_RCA", Tipo::Booleano},
             // A credit note: the invoice it corrects (Fav_Id); 0 or NULL for
             // any other invoice. The law asks a rectifying invoice to name it.
             {"Fav_IdRectificada", Tipo::Id},
             {"Fav_ImpHidNac", Tipo::Dinero},
             {"Fav_ImpHidAut", Tipo::Dinero},
         }},

        // Non-fiscal retentions kept back by the customer. The suite gives the
        // table no key; one of its own lets its rows be addressed one by one.
        {"RetNF",
         Catalogo::Empresa,
         {
             {"RetNF_Id", Tipo::Clave},
             {"RetNF_IdRetNf", Tipo::Entero},
             {"RetNF_Origen", Tipo::Entero},
             {"RetNF_Tipo", Tipo::Texto},
             {"RetNF_IdFactura", Tipo::Id},
             {"RetNF_IdClPr", Tipo::Id},
             {"RetNF_Fecha", Tipo::Fecha},
             {"RetNF_ImpRet", Tipo::Dinero},
             {"RetNF_ImpPag", Tipo::Dinero},
             {"RetNF_Obs", Tipo::Texto, Defecto::Nulo},
             {"RetNF_Estado", Tipo::Entero},
             {"RetNF_IdRec", Tipo::Id},
         }},

        // Delivery note header.
        {"Cav",
         Catalogo::Empresa,
         {
             {"Cav_Id", Tipo::Clave},
             {"Cav_Serie", Tipo::Texto},
             {"Cav_Numero", Tipo::Entero},
             {"Cav_Fecha", Tipo::Fecha},
             {"Cav_IdCli", Tipo::Id},
             // NULL while the note belongs to no invoice.
             {"Cav_IdFactura", Tipo::Id, Defecto::Nulo},
             // 1 pending invoicing, 2 invoiced.
             {"Cav_Situa", Tipo::Entero, Defecto::Uno},
             {"Cav_IdFco", Tipo::Id},
             // Tax regime of the note (10 rental). NULL means not stated, which
             // the accounting links report instead of posting a wrong regime.
             {"Cav_IdTiva", Tipo::Entero, Defecto::Nulo},
             {"Cav_Dto1", Tipo::Porcentaje},
             {"Cav_Dto2", Tipo::Porcentaje},
             {"Cav_Agente", Tipo::Id},
             {"Cav_NFiscal", Tipo::Texto},
             {"Cav_CliDoc", Tipo::Texto},
             {"Cav_NCom", Tipo::Texto},
             {"Cav_SG", Tipo::Texto},
             {"Cav_Nombre", Tipo::Texto},
             // NULL when the address has no number, as in Fav_Num.
             {"Cav_Num", Tipo::Entero, Defecto::Nulo},
             {"Cav_ESCALERA", Tipo::Texto},
             {"Cav_Piso", Tipo::Texto},
             {"Cav_Puerta", Tipo::Texto},
             {"Cav_CP", Tipo::Texto},
             {"Cav_Pais", Tipo::Texto},
             {"Cav_SPais", Tipo::Texto},
             {"Cav_PROVINCIA", Tipo::Entero},
             {"Cav_SProv", Tipo::Texto},
             {"Cav_Poblacion", Tipo::Texto},
             {"Cav_Tlf", Tipo::Texto},
             {"Cav_Obs", Tipo::Texto},
             {"cav_PesoNeto", Tipo::Doble},
             {"Cav_CostePortes", Tipo::Dinero},
             {"Cav_idveh", Tipo::Id},
             {"Cav_Km", Tipo::Texto},
         }},

        // Delivery note line.
        {"Lav",
         Catalogo::Empresa,
         {
             {"Lav_Id", Tipo::Clave},
             {"Lav_IdCav", Tipo::Id},
             {"Lav_Orden", Tipo::Entero},
             {"Lav_IdArt", Tipo::Id},
             {"Lav_CodArt", Tipo::Texto},
             {"Lav_Des", Tipo::Texto},
             {"Lav_Ampliades", Tipo::Texto},
             {"Lav_Cantidad", Tipo::Doble},
             {"Lav_Uni", Tipo::Doble},
             {"Lav_Medida", Tipo::Texto},
             {"Lav_Bulto", Tipo::Entero},
             {"Lav_Decm", Tipo::Entero},
             {"Lav_Largo", Tipo::Doble},
             {"Lav_ancho", Tipo::Doble},
             {"Lav_Espesor", Tipo::Doble},
             {"Lav_externo", Tipo::Doble},
             {"Lav_interno", Tipo::Doble},
             {"Lav_formula", Tipo::Texto},
             {"Lav_Precio", Tipo::Precio},
             {"Lav_Dto1", Tipo::Porcentaje},
             {"Lav_Dto2", Tipo::Porcentaje},
             {"Lav_Importe", Tipo::Dinero},
             {"Lav_PResDes", Tipo::Porcentaje},
             {"Lav_ImpResDes", Tipo::Dinero},
             {"Lav_ImpDtoUnidad", Tipo::Dinero},
             {"Lav_Tiva", Tipo::Id},
             // NULL: the line takes the sales account of its article.
             {"Lav_CtaCon", Tipo::Texto, Defecto::Nulo},
             {"Lav_ImpHidNac", Tipo::Dinero},
             {"Lav_ImpHidAut", Tipo::Dinero},
             {"Lav_PCompra", Tipo::Precio},
             {"lav_peso", Tipo::Doble},
             {"Lav_Sped", Tipo::Texto},
             {"Lav_Sref", Tipo::Texto},
             {"Lav_SerArt", Tipo::Texto},
             {"Lav_Lote", Tipo::Texto},
             {"Lav_Imprimir", Tipo::Booleano, Defecto::Uno},
             {"lav_iddoc", Tipo::Id},
             {"Lav_IdObra", Tipo::Id},
             {"lav_idparte", Tipo::Id},
             // Transport leg (TrDes_Id); 0 for a line without one.
             {"Lav_IdViaje", Tipo::Id},
             {"lav_idContrata", Tipo::Id},
         }},

        // Receipts of sales (Rec_Tipo 1) and purchases (2).
        {"Rec",
         Catalogo::Empresa,
         {
             {"Rec_Id", Tipo::Clave},
             {"Rec_Tipo", Tipo::Entero},
             {"Rec_IdFac", Tipo::Id},
             {"Rec_IdClPr", Tipo::Id},
             {"Rec_Serie", Tipo::Texto},
             {"Rec_Numero", Tipo::Entero},
             {"Rec_FVto", Tipo::Fecha},
             {"Rec_Importe", Tipo::Dinero},
             {"Rec_Cta", Tipo::Texto},
             {"Rec_IdBanco", Tipo::Id},
             // Mode (Situaciones process 2) and state (process 1, 1 pending).
             {"Rec_Mod", Tipo::Entero},
             {"Rec_Sit", Tipo::Entero, Defecto::Uno},
             {"Rec_Age", Tipo::Id},
             {"Rec_IdRem", Tipo::Id},
             {"Rec_Texto", Tipo::Texto},
             {"Rec_Obser", Tipo::Texto},
             // Bank data given to the treasury for the collection, and the
             // portfolio mark (the company keeps receipts in portfolio).
             {"Rec_CtaBanco", Tipo::Texto},
             {"Rec_Iban", Tipo::Texto},
             {"Rec_Swift", Tipo::Texto},
             {"Rec_Cartera", Tipo::Booleano},
         }},

        // Remittances of domiciled receipts.
        {"Rem",
         Catalogo::Empresa,
         {
             {"Rem_Id", Tipo::Clave},
             {"Rem_Fecha", Tipo::Fecha},
             {"Rem_IdBanco", Tipo::Id},
             {"Rem_Modo", Tipo::Entero},
             {"Rem_Sit", Tipo::Entero},
             {"Rem_Fcobro", Tipo::Fecha, Defecto::Nulo},
             {"Rem_Obser", Tipo::Texto},
             {"Rem_DFecha", Tipo::Fecha},
             {"Rem_HFecha", Tipo::Fecha},
             {"Rem_Cartera", Tipo::Booleano},
         }},

        // Banks of the company.
        {"BANCOS",
         Catalogo::Empresa,
         {
             {"Ban_Id", Tipo::Clave},
             {"Ban_ccc", Tipo::Texto},
             {"Ban_Iban", Tipo::Texto},
             {"Ban_Swift", Tipo::Texto},
         }},

        // Collections journal, exported by the accounting links.
        {"DiaRec",
         Catalogo::Empresa,
         {
             {"DiaRec_Id", Tipo::Clave},
             {"DiaRec_IdRec", Tipo::Id},
             {"DiaRec_Fecha", Tipo::Fecha},
             {"DiaRec_Importe", Tipo::Dinero},
             // A side without account is NULL: the exports test it so.
             {"DiaRec_CtaD", Tipo::Texto, Defecto::Nulo},
             {"DiaRec_CtaH", Tipo::Texto, Defecto::Nulo},
             {"DiaRec_ConceptoD", Tipo::Texto},
             {"DiaRec_ConceptoH", Tipo::Texto},
             {"DiaRec_Asto", Tipo::Entero},
             // 0 until exported.
             {"DiaRec_Conexion", Tipo::Entero},
         }},

        // Customers.
        {"Cli",
         Catalogo::Empresa,
         {
             {"Cli_Id", Tipo::Clave},
             {"Cli_Cod", Tipo::Entero},
             {"Cli_Nom", Tipo::Texto},
             {"cli_ape1", Tipo::Texto},
             {"cli_ape2", Tipo::Texto},
             {"CLI_COMER", Tipo::Texto},
             {"CLI_DOC", Tipo::Texto},
             {"CLI_TIPDOC", Tipo::Entero},
             // 3 never goes to contract billing.
             {"Cli_Tipo", Tipo::Entero},
             // Tax regime; NULL is read as the general regime 1.
             {"Cli_Reg", Tipo::Entero, Defecto::Nulo},
             {"Cli_Cta", Tipo::Texto},
             // NULL stops the posting with its own message.
             {"CLI_CTACON", Tipo::Texto, Defecto::Nulo},
             {"Cli_CtaConCompensa", Tipo::Texto},
             {"Cli_ban", Tipo::Id},
             {"cli_Fco", Tipo::Id},
             {"Cli_Di1", Tipo::Entero},
             {"Cli_Di2", Tipo::Entero},
             {"Cli_msp", Tipo::Entero},
             {"Cli_Dto1", Tipo::Porcentaje},
             {"Cli_Dto2", Tipo::Porcentaje},
             {"CLI_IdAge", Tipo::Id},
             {"Cli_AGCom", Tipo::Id},
             {"CLI_EMI", Tipo::Entero},
             {"cli_impmin", Tipo::Dinero},
             {"CLI_RetNFiscal", Tipo::Porcentaje},
             {"CLI_ModoRetNF", Tipo::Entero},
             {"Cli_Fatencion", Tipo::Texto},
             {"Cli_favobs", Tipo::Texto},
             {"CLI_OBSER", Tipo::Texto},
             // NULL: no text line heads the contract invoices.
             {"Cli_TextoServicios", Tipo::Texto, Defecto::Nulo},
             // NULL: the retention prints its built-in caption.
             {"cli_textf", Tipo::Texto, Defecto::Nulo},
             {"Cli_CodExt", Tipo::Texto},
             // 0 one invoice per contract, 1 per customer, 2 per customer with
             // the lines of a family summed: a code, not a flag.
             {"Cli_Agrupacontrat2", Tipo::Entero},
             {"Cli_Actv", Tipo::Id},
         }},

        // Addresses, shared by customers and suppliers through the links below.
        {"Dir",
         Catalogo::Empresa,
         {
             {"DIR_ID", Tipo::Clave},
             {"DIR_COMER", Tipo::Texto},
             {"DIR_SG", Tipo::Texto},
             {"DIR_NOMBRE", Tipo::Texto},
             // NULL when the address has no number.
             {"Dir_Numero", Tipo::Entero, Defecto::Nulo},
             {"DIR_BLOQUE", Tipo::Texto},
             {"Dir_Escalera", Tipo::Texto},
             {"Dir_Piso", Tipo::Texto},
             {"Dir_Puerta", Tipo::Texto},
             {"DIR_LETRA", Tipo::Texto},
             {"DIR_CP", Tipo::Texto},
             {"DIR_POBLACION", Tipo::Texto},
             {"Dir_Provincia", Tipo::Entero},
             {"Dir_Pais", Tipo::Texto},
             // '1' marks the fiscal address.
             {"dir_fiscal", Tipo::Texto},
         }},
        {"CliDir",
         Catalogo::Empresa,
         {
             {"CLIDIR_CLI", Tipo::Id},
             {"Clidir_Dir", Tipo::Id},
         }},

        // Contacts of customers and suppliers (modo 4, tipo 1: mail address).
        {"Contac",
         Catalogo::Empresa,
         {
             {"Contac_Id", Tipo::Clave},
             {"contac_idclipro", Tipo::Id},
             {"contac_tipo", Tipo::Entero},
             {"contac_modo", Tipo::Entero},
             {"contac_descri", Tipo::Texto},
         }},

        // Sales agents and customer activities.
        {"Age",
         Catalogo::Empresa,
         {
             {"AGE_ID", Tipo::Clave},
             {"AGE_NOM", Tipo::Texto},
         }},
        {"Actv",
         Catalogo::Empresa,
         {
             {"actv_id", Tipo::Clave},
             {"Actv_Des", Tipo::Texto},
         }},

        // Articles, families and compositions.
        {"Art",
         Catalogo::Empresa,
         {
             {"Art_Id", Tipo::Clave},
             {"Art_Cod", Tipo::Texto},
             {"Art_Des", Tipo::Texto},
             {"art_fam", Tipo::Id},
             // Rate family (Tiva_Art), not a tax row.
             {"Art_Tiva", Tipo::Entero},
             {"Art_Medida", Tipo::Texto},
             {"Art_Composicion", Tipo::Booleano},
             // An account not set is NULL: the posting tells NULL (fall back to
             // the company's default) from a code of zeros or blanks.
             {"Art_CtaVen", Tipo::Texto, Defecto::Nulo},
             {"Art_CtaCom", Tipo::Texto, Defecto::Nulo},
             {"Art_CtaVenAb", Tipo::Texto, Defecto::Nulo},
             {"Art_CtaComAb", Tipo::Texto, Defecto::Nulo},
         }},
        {"Fam",
         Catalogo::Empresa,
         {
             {"Fam_Id", Tipo::Clave},
             {"FAM_DES", Tipo::Texto},
         }},
        // Formulas (compositions) of articles and their lines.
        {"Fml",
         Catalogo::Empresa,
         {
             {"Fml_Id", Tipo::Clave},
             {"Fml_Des", Tipo::Texto},
         }},
        {"Fmll",
         Catalogo::Empresa,
         {
             {"Fmll_Id", Tipo::Clave},
             {"FMLL_IDFML", Tipo::Id},
             {"FMLL_IdArt", Tipo::Id},
             // NULL: the component shows its article's description.
             {"fmll_Des", Tipo::Texto, Defecto::Nulo},
             {"FMLL_CANTIDAD", Tipo::Doble},
             {"FMLL_LARGO", Tipo::Doble},
             {"FMLL_ANCHO", Tipo::Doble},
             {"FMLL_ESPESOR", Tipo::Doble},
             {"FMLL_DINT", Tipo::Doble},
             {"FMLL_DEXT", Tipo::Doble},
             {"Fmll_Uni", Tipo::Doble},
         }},
        {"ArtCom",
         Catalogo::Empresa,
         {
             {"ArtCom_IdArt", Tipo::Id},
             {"ArtCom_IdFml", Tipo::Id},
         }},

        // Payment terms and their instalments.
        {"Fco",
         Catalogo::Empresa,
         {
             {"Fco_Id", Tipo::Clave},
             {"Fco_Des", Tipo::Texto},
             // Stands as the customer's second discount.
             {"fco_dto", Tipo::Porcentaje},
         }},
        // Fcol_id is the term the instalment belongs to, not a key of its own,
        // so the table takes Fcol_Linea as key. Days and share are what the
        // treasury class needs to split an amount into due dates.
        {"Fcol",
         Catalogo::Empresa,
         {
             {"Fcol_Linea", Tipo::Clave},
             {"Fcol_id", Tipo::Id},
             {"Fcol_Mod", Tipo::Entero},
             {"Fcol_Dias", Tipo::Entero},
             {"Fcol_Porcentaje", Tipo::Porcentaje},
         }},

        // Service contracts, billed by period.
        {"Contrataciones",
         Catalogo::Empresa,
         {
             {"Cont_Id", Tipo::Clave},
             // Customer code (Cli_Cod), not its id.
             {"Cont_Codcli", Tipo::Entero},
             {"Cont_IdArt", Tipo::Id},
             {"Cont_Cantidad", Tipo::Doble},
             {"Cont_Precio", Tipo::Precio},
             {"cont_dto", Tipo::Porcentaje},
             {"Cont_AmpliaDes", Tipo::Texto},
             // Period, Situaciones process 4.
             {"Cont_Per", Tipo::Entero},
             {"Cont_PerEnFac", Tipo::Booleano},
             {"Cont_FInstala", Tipo::Fecha},
             // The billing dates are NULL while unknown or ended: the
             // selection and the next-period step test them so.
             {"Cont_Fbaja", Tipo::Fecha, Defecto::Nulo},
             {"Cont_FFactura", Tipo::Fecha, Defecto::Nulo},
             {"Cont_Fvto", Tipo::Fecha, Defecto::Nulo},
             {"Cont_FvtoCont", Tipo::Fecha},
             {"CONT_ULTVTo", Tipo::Fecha, Defecto::Nulo},
             {"Cont_Vencido", Tipo::Booleano},
             {"Cont_AjustaPeriodo", Tipo::Booleano},
             {"Cont_IvaInc", Tipo::Booleano},
             {"Cont_tipoprorrateo", Tipo::Booleano},
             {"Cont_prorrateoAlta", Tipo::Booleano},
             {"Cont_prorrateobaja", Tipo::Booleano},
             {"Cont_IdFactura", Tipo::Id},
             {"Cont_IdFacturaUlt", Tipo::Id},
         }},

        // Purchase invoices, read by the accounting links.
        {"Fac",
         Catalogo::Empresa,
         {
             {"Fac_Id", Tipo::Clave},
             {"Fac_IdPro", Tipo::Id},
             {"Fac_Serie", Tipo::Texto},
             {"Fac_Numero", Tipo::Entero},
             {"Fac_Fecha", Tipo::Fecha},
             {"Fac_Total", Tipo::Dinero},
             {"Fac_Dto1", Tipo::Porcentaje},
             {"Fac_Dto2", Tipo::Porcentaje},
             {"fac_nreg", Tipo::Entero},
             {"Fac_Conex", Tipo::Entero},
             {"Fac_DocCont", Tipo::Texto},
         }},
        // VAT bands of a purchase invoice.
        {"FacL",
         Catalogo::Empresa,
         {
             {"FacL_Id", Tipo::Clave},
             {"Facl_IdFac", Tipo::Id},
             {"FacL_Base", Tipo::Dinero},
             {"FacL_PIva", Tipo::Porcentaje},
             {"FacL_Iva", Tipo::Dinero},
             {"FacL_Pre", Tipo::Porcentaje},
             {"FacL_Re", Tipo::Dinero},
             {"FacL_Prt", Tipo::Porcentaje},
             {"FacL_Rt", Tipo::Dinero},
             {"Facl_CtaIva", Tipo::Texto},
             {"Facl_CtaRec", Tipo::Texto},
         }},
        // Purchase delivery notes and their lines.
        {"Cac",
         Catalogo::Empresa,
         {
             {"Cac_Id", Tipo::Clave},
             {"cac_idfac", Tipo::Id},
         }},
        {"Lac",
         Catalogo::Empresa,
         {
             {"Lac_Id", Tipo::Clave},
             {"lac_idcac", Tipo::Id},
             {"lac_idlma", Tipo::Id},
             {"Lac_CodArt", Tipo::Texto},
             {"Lac_CtaCon", Tipo::Texto},
             {"Lac_Importe", Tipo::Dinero},
             {"lac_tiva", Tipo::Id},
         }},
        // Warehouse movements.
        {"Lma",
         Catalogo::Empresa,
         {
             {"lma_id", Tipo::Clave},
             {"lma_idorigen", Tipo::Id},
             {"lma_torigen", Tipo::Entero},
         }},
        // Suppliers and their addresses.
        {"Pro",
         Catalogo::Empresa,
         {
             {"PRO_id", Tipo::Clave},
             {"Pro_Cod", Tipo::Entero},
             {"Pro_NOM", Tipo::Texto},
             {"PRO_APE1", Tipo::Texto},
             {"Pro_APE2", Tipo::Texto},
             {"PRO_COMER", Tipo::Texto},
             {"PRO_DOC", Tipo::Texto},
             {"Pro_CTACON", Tipo::Texto},
             {"PRO_CTAGASTO", Tipo::Texto},
             {"PRO_DTO1", Tipo::Porcentaje},
             {"PRO_DTO2", Tipo::Porcentaje},
             {"PRO_FCO", Tipo::Id},
             {"PRO_OBSER", Tipo::Texto},
         }},
        {"ProDir",
         Catalogo::Empresa,
         {
             {"ProDir_Pro", Tipo::Id},
             {"ProDir_Dir", Tipo::Id},
         }},

        // Jobs, repairs, work reports and the zones and routes they refer to.
        {"Obras",
         Catalogo::Empresa,
         {
             {"obras_id", Tipo::Clave},
             {"obras_cod", Tipo::Entero},
             {"obras_des", Tipo::Texto},
             {"obras_ctacom", Tipo::Texto},
             {"obras_situacion", Tipo::Entero},
             {"obras_zona", Tipo::Id},
         }},
        {"Averias",
         Catalogo::Empresa,
         {
             {"averias_id", Tipo::Clave},
             {"averias_cod", Tipo::Entero},
             {"averias_des", Tipo::Texto},
             {"averias_situacion", Tipo::Entero},
             {"averias_zona", Tipo::Id},
         }},
        {"Partes",
         Catalogo::Empresa,
         {
             {"partes_id", Tipo::Clave},
             {"partes_alta", Tipo::Fecha},
             // Number of the delivery note the report became.
             {"partes_Cavn", Tipo::Entero},
             {"partes_IdOrigen", Tipo::Id},
             {"partes_Torigen", Tipo::Entero},
         }},
        {"Zonas",
         Catalogo::Empresa,
         {
             {"Zonas_Id", Tipo::Clave},
             {"Zonas_Cod", Tipo::Entero},
             {"Zonas_Des", Tipo::Texto},
         }},
        {"Rutas",
         Catalogo::Empresa,
         {
             {"Rutas_Id", Tipo::Clave},
             {"Rutas_Cod", Tipo::Entero},
             {"Rutas_Des", Tipo::Texto},
         }},
        // Attached texts of lines.
        {"Doc",
         Catalogo::Empresa,
         {
             {"doc_id", Tipo::Clave},
             {"doc_text", Tipo::Texto},
         }},

        // Vehicles and the transport module: trips, their vehicles, loads,
        // unloads (the legs invoiced through Lav_IdViaje) and requests.
        {"Veh",
         Catalogo::Empresa,
         {
             {"veh_id", Tipo::Clave},
             {"VEH_MAT", Tipo::Texto},
             {"Veh_Mod", Tipo::Texto},
             {"Veh_Cha", Tipo::Texto},
         }},
        {"TrVia",
         Catalogo::Empresa,
         {
             {"TrVia_Id", Tipo::Clave},
             {"TrVia_Serie", Tipo::Texto},
             {"TrVia_Numero", Tipo::Entero},
         }},
        {"TrViaVeh",
         Catalogo::Empresa,
         {
             {"TrViaVeh_Id", Tipo::Clave},
             {"TrViaVeh_IdVia", Tipo::Id},
             {"TrViaVeh_MatriTra", Tipo::Texto},
             {"TrViaVeh_MatriRem", Tipo::Texto},
         }},
        {"TrCar",
         Catalogo::Empresa,
         {
             {"TrCar_Id", Tipo::Clave},
             {"TrCar_IdVia", Tipo::Id},
             {"TrCar_IdPet", Tipo::Id},
             {"TrCar_Fecha", Tipo::Fecha},
             {"TrCar_Poblacion", Tipo::Texto},
             {"TrCar_NomEmp", Tipo::Texto},
             {"TrCar_Cantidad", Tipo::Doble},
             {"TrCar_Unidad", Tipo::Texto},
             // Country code; '011' is the home country.
             {"TrCar_Pais", Tipo::Texto},
             {"TrCar_sAlbaran", Tipo::Texto},
             {"TrCar_TexFac", Tipo::Texto},
         }},
        {"TrDes",
         Catalogo::Empresa,
         {
             {"TrDes_Id", Tipo::Clave},
             {"TrDes_IdCar", Tipo::Id},
             {"TrDes_IdLav", Tipo::Id},
             {"TrDes_FDescarga", Tipo::Fecha},
             {"TrDes_Poblacion", Tipo::Texto},
             {"TrDes_NomEmp", Tipo::Texto},
             {"TrDes_Kilos", Tipo::Doble},
             {"TrDes_Pais", Tipo::Texto},
         }},
        {"TrPet",
         Catalogo::Empresa,
         {
             {"TrPet_Id", Tipo::Clave},
             {"TrPet_SRef", Tipo::Texto},
         }},

        // Billing periods of a fee and the invoices they went into.
        {"TfFac",
         Catalogo::Empresa,
         {
             {"TfFac_Id", Tipo::Clave},
             {"TfFac_IdTfPro", Tipo::Id},
             {"TfFac_Fecha", Tipo::Fecha},
             {"TfFac_FIni", Tipo::Fecha},
             {"TfFac_FFin", Tipo::Fecha},
         }},
        {"TfDia",
         Catalogo::Empresa,
         {
             {"TfDia_IdTfFac", Tipo::Id},
             {"TfDia_IdFav", Tipo::Id},
         }},
        {"TfPro",
         Catalogo::Empresa,
         {
             {"TfPro_Id", Tipo::Clave},
             {"TfPro_Des", Tipo::Texto},
         }},

        // Customer orders, their lines and the link of a line to the delivery
        // note line that served it; work orders and their link to lines.
        {"PedCa",
         Catalogo::Empresa,
         {
             {"PedCa_Id", Tipo::Clave},
             {"PedCa_Serie", Tipo::Texto},
             {"PedCa_Numero", Tipo::Entero},
         }},
        {"PedLi",
         Catalogo::Empresa,
         {
             {"Pedli_Id", Tipo::Clave},
             {"PedLi_IdPedCa", Tipo::Id},
         }},
        {"PedSe",
         Catalogo::Empresa,
         {
             {"PedSe_IdLav", Tipo::Id},
             {"PedSe_IdPedLi", Tipo::Id},
         }},
        {"OrdAlb",
         Catalogo::Empresa,
         {
             {"ora_idlav", Tipo::Id},
             {"ora_idorden", Tipo::Id},
         }},
        {"Orden",
         Catalogo::Empresa,
         {
             {"orden_id", Tipo::Clave},
             {"orden_num", Tipo::Entero},
         }},

        // Work centres and their users: a centre may impose an invoice series.
        {"Centra",
         Catalogo::Empresa,
         {
             {"centra_id", Tipo::Clave},
             {"centra_sfav", Tipo::Texto},
         }},
        {"Cenusu",
         Catalogo::Empresa,
         {
             {"cenusu_idcen", Tipo::Id},
             {"cenusu_idusu", Tipo::Id},
         }},

        // The invoicing records (VERI*FACTU): one row per record, alta or
        // anulación, chained by their hashes in the order of Vfr_Id. Written
        // once and never changed: the database refuses UPDATE and DELETE.
        {"VfRegistro",
         Catalogo::Empresa,
         {
             {"Vfr_Id", Tipo::Clave},
             {"Vfr_Tipo", Tipo::Texto},     // "A" alta, "N" anulación
             {"Vfr_IdFactura", Tipo::Id},   // Fav_Id when written (the invoice may go)
             {"Vfr_IdAnterior", Tipo::Id},  // the record before it; 0 for the first
             {"Vfr_Nif", Tipo::Texto},      // the issuer
             {"Vfr_NumSerie", Tipo::Texto}, // series/number as registered
             {"Vfr_Fecha", Tipo::Texto},    // dd-mm-yyyy, as in the XML
             {"Vfr_TipoFactura", Tipo::Texto},
             {"Vfr_CuotaTotal", Tipo::Texto},
             {"Vfr_ImporteTotal", Tipo::Texto},
             {"Vfr_HuellaAnterior", Tipo::Texto},
             {"Vfr_FechaHora", Tipo::Texto}, // FechaHoraHusoGenRegistro
             {"Vfr_Huella", Tipo::Texto},
             {"Vfr_Subsanacion", Tipo::Texto},
             {"Vfr_RechazoPrevio", Tipo::Texto},
             {"Vfr_Xml", Tipo::Texto}, // the record element as sent
         }},

        // The sending state of each record: the queue of what the tax agency
        // has not accepted yet, and its answers. Unlike the records, it changes.
        {"VfEnvio",
         Catalogo::Empresa,
         {
             {"Vfe_IdRegistro", Tipo::Id},
             {"Vfe_Estado",
              Tipo::Entero}, // 0 pending, 1 Correcto, 2 AceptadoConErrores, 3 Incorrecto
             {"Vfe_Codigo", Tipo::Entero},
             {"Vfe_Descripcion", Tipo::Texto},
             {"Vfe_Csv", Tipo::Texto},
             {"Vfe_FechaEnvio", Tipo::Texto},
             {"Vfe_Intentos", Tipo::Entero},
         }},

        // Log of the accounting exchange runs.
        {"Log",
         Catalogo::Empresa,
         {
             {"Log_Id", Tipo::Clave},
             {"Log_Tipo", Tipo::Texto},
             {"Log_Usuario", Tipo::Id},
             {"Log_Linea", Tipo::Texto},
         }},

        // Company settings: one row, no key.
        {"Parametros",
         Catalogo::Empresa,
         {
             {"Par_Actividad", Tipo::Texto},
             {"Par_AlbNoOrg", Tipo::Entero},
             // 0 no note numbers, 1 ask, 2 print them.
             {"Par_AlbPrn", Tipo::Entero},
             {"Par_Automocion", Tipo::Booleano},
             {"par_bultos", Tipo::Entero},
             {"Par_Catalog", Tipo::Texto},
             {"Par_CliCon", Tipo::Entero},
             {"Par_Cobros", Tipo::Entero},
             {"Par_ConCtaCaja", Tipo::Texto},
             {"Par_ContaC", Tipo::Entero},
             {"Par_Contav", Tipo::Entero},
             {"Par_Correo", Tipo::Texto},
             {"Par_Cp", Tipo::Texto},
             {"Par_CritDevengo", Tipo::Entero},
             {"Par_CtaCIrpf", Tipo::Texto},
             {"Par_CtaCIva", Tipo::Texto},
             {"Par_CtaCompras", Tipo::Texto},
             {"Par_CtaCRec1", Tipo::Texto},
             // VAT accounts of credit notes; NULL falls back on Par_CtaVIva*.
             {"PAR_CTAIVAA1", Tipo::Texto, Defecto::Nulo},
             {"PAR_CTAIVAA2", Tipo::Texto, Defecto::Nulo},
             {"PAR_CTAIVAA3", Tipo::Texto, Defecto::Nulo},
             {"PAR_CTAIVACA1", Tipo::Texto},
             {"Par_CtaNum", Tipo::Entero},
             {"Par_CtaRecDomCartera", Tipo::Texto},
             {"Par_CtaRecNDomCartera", Tipo::Texto},
             {"Par_CtaTipo", Tipo::Entero},
             {"Par_CtaVentas", Tipo::Texto},
             {"Par_CtaVIrpf", Tipo::Texto},
             {"Par_CtaVIrpfAlq", Tipo::Texto},
             {"Par_CtaVIva", Tipo::Texto},
             {"Par_CtaVIva2", Tipo::Texto},
             {"Par_CtaVIva3", Tipo::Texto},
             {"Par_CtaVRec1", Tipo::Texto},
             {"Par_CtaVRec2", Tipo::Texto},
             {"Par_CtaVRec3", Tipo::Texto},
             {"par_deccan", Tipo::Entero},
             {"par_decdesc", Tipo::Entero},
             {"par_decpre", Tipo::Entero},
             // Design number. Neither engine folds the case of the ñ: statements
             // spell it lower case, as here.
             {"Par_DiseñoFactura", Tipo::Entero},
             {"Par_Doc", Tipo::Texto},
             {"Par_Esc", Tipo::Texto},
             {"Par_FacDesAmp", Tipo::Entero},
             {"Par_Fax", Tipo::Texto},
             // NULL: no closing date.
             {"Par_FechaBloqueo", Tipo::Fecha, Defecto::Nulo},
             {"PAR_FLOPD", Tipo::Booleano},
             // NULL counts as TELMARO.
             {"Par_GContable", Tipo::Texto, Defecto::Nulo},
             {"Par_ImagenLogo", Tipo::Binario},
             {"Par_ImgPosX", Tipo::Entero},
             {"Par_ImgPosY", Tipo::Entero},
             {"Par_Justificar", Tipo::Booleano},
             {"Par_Lotes", Tipo::Entero},
             {"PAR_MALBPESO", Tipo::Entero},
             {"Par_ModConCon", Tipo::Entero},
             {"Par_ModTransportes", Tipo::Booleano},
             {"Par_NComer", Tipo::Booleano},
             {"par_NComercial", Tipo::Texto},
             {"Par_NCopFac", Tipo::Entero},
             {"Par_Nombre", Tipo::Texto},
             {"par_NombreVia", Tipo::Texto},
             // NULL when the company's address has no number.
             {"par_numero", Tipo::Entero, Defecto::Nulo},
             {"PAR_ORCONTANOM", Tipo::Entero},
             {"Par_Pagos", Tipo::Entero},
             {"Par_PagosCtaRecDomCartera", Tipo::Texto},
             {"Par_Pais", Tipo::Texto},
             {"Par_PeDiFact", Tipo::Booleano},
             {"Par_Piefac1", Tipo::Texto},
             {"Par_PieFac2", Tipo::Texto},
             {"Par_Piso", Tipo::Texto},
             {"PAR_PLANTILLA_FAC", Tipo::Texto},
             {"PAR_PLANTILLA_FOBRAS", Tipo::Texto},
             {"Par_Poblacion", Tipo::Texto},
             {"Par_PrintFco", Tipo::Booleano},
             {"Par_PrnEmp", Tipo::Booleano},
             {"Par_PrnL1", Tipo::Booleano},
             {"Par_PrnL2", Tipo::Booleano},
             {"Par_prnlogo", Tipo::Booleano},
             // Province code, joined to PROV_COD for the letterhead.
             {"Par_Provincia", Tipo::Entero},
             {"Par_Puerta", Tipo::Texto},
             {"Par_RecAbonos", Tipo::Booleano},
             {"Par_RecCar", Tipo::Entero},
             {"Par_RegFiscal", Tipo::Entero},
             {"Par_RutaTelmaro", Tipo::Texto},
             {"Par_SaltaRiesgo", Tipo::Booleano},
             {"Par_SerAlb", Tipo::Texto},
             {"par_SerFac", Tipo::Texto},
             {"Par_SerieMasNumero", Tipo::Booleano},
             // VERI*FACTU: records on (the law's default), the installation
             // number (never repeated) and the agency's endpoint (0 test, 1
             // production).
             {"Par_VfActivo", Tipo::Booleano, Defecto::Uno},
             {"Par_VfInstalacion", Tipo::Texto},
             {"Par_VfEntorno", Tipo::Entero},
             {"par_Sg", Tipo::Texto},
             {"Par_Sincuadros", Tipo::Booleano},
             {"Par_SingFav", Tipo::Texto},
             {"Par_Telefono", Tipo::Texto},
             // NULL: the letterhead prints no mobile line.
             {"Par_TfMovil", Tipo::Texto, Defecto::Nulo},
             {"Par_TopMarg", Tipo::Entero},
             {"Par_Web", Tipo::Texto},
         }},
        // Texts of the company by kind (0: the data protection clause).
        {"ParamTextos",
         Catalogo::Empresa,
         {
             {"PTex_Tipo", Tipo::Entero},
             {"PTex_Texto", Tipo::Texto},
         }},
    };
}

// Catalog shared by all companies: vkcomun.
std::vector<Tabla> tablasComun() {
    return {
        // Tax rows, one per rate, regime and first date of validity.
        {"TIVAS",
         Catalogo::Comun,
         {
             {"Tiva_Id", Tipo::Clave},
             {"Tiva_Reg", Tipo::Entero},
             // Rate family within the regime (1 general, 2 reduced, 3 super
             // reduced), steady across changes of rate.
             {"Tiva_Art", Tipo::Entero},
             {"Tiva_Iva", Tipo::Porcentaje},
             {"Tiva_Rec", Tipo::Porcentaje},
             {"Tiva_Ret", Tipo::Porcentaje},
             {"Tiva_Fecha", Tipo::Fecha},
             {"Tiva_Des", Tipo::Texto},
         }},
        // Companies; Emp_Conta 1 links the company to accounting.
        {"Emp",
         Catalogo::Comun,
         {
             {"Emp_id", Tipo::Clave},
             {"EMP_CATALOG", Tipo::Texto},
             {"Emp_Nom", Tipo::Texto},
             {"Emp_Conta", Tipo::Entero},
         }},
        // Users; the session checks Usu_Admin for the administrator screens.
        {"Usu",
         Catalogo::Comun,
         {
             {"Usu_Id", Tipo::Clave},
             {"Usu_Nom", Tipo::Texto},
             {"Usu_Admin", Tipo::Booleano},
         }},
        // A user's settings in a company.
        {"Pus",
         Catalogo::Comun,
         {
             {"Pus_IdUsu", Tipo::Id},
             {"Pus_IdEmp", Tipo::Id},
             {"Pus_SerFac", Tipo::Texto},
             {"Pus_SerAlb", Tipo::Texto},
         }},
        // Provinces by code (99: none), countries by text code ("011"), street
        // types. The codes are fixed data, not identities.
        {"PROV",
         Catalogo::Comun,
         {
             {"PROV_COD", Tipo::Entero},
             {"PROV_NOM", Tipo::Texto},
         }},
        {"PAIS",
         Catalogo::Comun,
         {
             {"PAIS_COD", Tipo::Texto},
             {"PAIS_NOM", Tipo::Texto},
             {"Pais_AEAT", Tipo::Texto},
         }},
        {"TVI",
         Catalogo::Comun,
         {
             {"TVI_COD", Tipo::Texto},
             {"TVI_NOM", Tipo::Texto},
         }},
        // The legal mention an invoice carries for each tax regime that needs
        // one: the reason it is exempt or not subject. Seeded once; from then
        // on the installation's own data.
        {"MENIVA",
         Catalogo::Comun,
         {
             // The Tiva_Reg of TIVAS.
             {"MenIva_Reg", Tipo::Codigo},
             // Up to 120 characters: two lines of a text layout's foot.
             {"MenIva_Texto", Tipo::Texto},
         }},
        // Coded values by process and language (0 Spanish): 1 receipt states,
        // 2 receipt modes, 4 billing periods.
        {"Situaciones",
         Catalogo::Comun,
         {
             {"Sit_Proceso", Tipo::Entero},
             {"Sit_Cod", Tipo::Entero},
             {"Sit_Des", Tipo::Texto},
             {"Sit_Idioma", Tipo::Entero},
         }},
    };
}

// Accounting catalog of a company. Asi and PCta are read by the posting
// itself; the rest is where the built-in posting class keeps the lines of an
// entry, the VAT register and its bands, the tax numbers and the fiscal years
// that decide whether a date can still be posted.
std::vector<Tabla> tablasContables() {
    return {
        // Journal entries; origin 1 invoice, 3 receipt in portfolio, 6 collection.
        {"Asi",
         Catalogo::Contable,
         {
             {"Asi_Id", Tipo::Clave},
             {"Asi_Asiento", Tipo::Entero},
             {"Asi_TOrigen", Tipo::Entero},
             {"Asi_IdOrigen", Tipo::Id},
             {"Asi_Fecha", Tipo::Fecha},
             {"Asi_Ejercicio", Tipo::Entero},
         }},
        // Lines of an entry.
        {"Apu",
         Catalogo::Contable,
         {
             {"Apu_Id", Tipo::Clave},
             {"Apu_IdAsi", Tipo::Id},
             {"Apu_Orden", Tipo::Entero},
             {"Apu_IdCta", Tipo::Id},
             {"Apu_Cuenta", Tipo::Texto},
             {"Apu_Debe", Tipo::Dinero},
             {"Apu_Haber", Tipo::Dinero},
             {"Apu_CodConcepto", Tipo::Entero},
             {"Apu_Concepto", Tipo::Texto},
             {"Apu_Punteado", Tipo::Entero},
             {"Apu_Estado", Tipo::Entero},
             {"Apu_IdCentro", Tipo::Id},
             {"Apu_IdDpto", Tipo::Id},
             {"Apu_IdContra", Tipo::Id},
             {"Apu_Conver", Tipo::Entero},
         }},
        // Chart of accounts; an account is opened with the description the
        // posting gives when it does not exist yet.
        {"PCta",
         Catalogo::Contable,
         {
             {"PCta_Id", Tipo::Clave},
             {"PCta_Cta", Tipo::Texto},
             {"PCta_Des", Tipo::Texto},
             // Tax number record of the account; 0 until the register sets it.
             {"PCta_IdNif", Tipo::Id},
         }},
        // Tax numbers with the name and address the register prints.
        {"Nif",
         Catalogo::Contable,
         {
             {"Nif_Id", Tipo::Clave},
             {"Nif_Doc", Tipo::Texto},
             {"Nif_RSocial", Tipo::Texto},
             {"Nif_Sg", Tipo::Texto},
             {"Nif_Dir", Tipo::Texto},
             {"Nif_Num", Tipo::Texto},
             {"Nif_Esc", Tipo::Texto},
             {"Nif_Pis", Tipo::Texto},
             {"Nif_Pue", Tipo::Texto},
             {"Nif_Cp", Tipo::Texto},
             {"Nif_Pob", Tipo::Texto},
             {"Nif_Pro", Tipo::Texto},
             {"Nif_Pais", Tipo::Texto},
         }},
        // VAT register: one record per invoice entry.
        {"RegFac",
         Catalogo::Contable,
         {
             {"RegFac_Id", Tipo::Clave},
             {"RegFac_IdAsi", Tipo::Id},
             {"RegFac_IdNif", Tipo::Id},
             // 1 output VAT; kind of invoice 0, or 3 and 10 by the regime.
             {"RegFac_RepSop", Tipo::Entero},
             {"RegFac_Tipo", Tipo::Entero},
             {"RegFac_FReg", Tipo::Fecha},
             {"RegFac_SReg", Tipo::Texto},
             {"RegFac_NReg", Tipo::Entero},
             {"RegFac_Fecha", Tipo::Fecha},
             {"RegFac_Serie", Tipo::Texto},
             {"RegFac_Numero", Tipo::Entero},
             // Customer as the invoice names it.
             {"RegFac_Doc", Tipo::Texto},
             {"RegFac_RSocial", Tipo::Texto},
             {"RegFac_Sg", Tipo::Texto},
             {"RegFac_Dir", Tipo::Texto},
             {"RegFac_Num", Tipo::Texto},
             {"RegFac_Esc", Tipo::Texto},
             {"RegFac_Pis", Tipo::Texto},
             {"RegFac_Pue", Tipo::Texto},
             {"RegFac_Cp", Tipo::Texto},
             {"RegFac_Pob", Tipo::Texto},
             {"RegFac_Pro", Tipo::Texto},
             {"RegFac_Pais", Tipo::Texto},
             // Sums of the three VAT bands.
             {"RegFac_Base", Tipo::Dinero},
             {"RegFac_Iva", Tipo::Dinero},
             {"RegFac_Rec", Tipo::Dinero},
             {"RegFac_Ret", Tipo::Dinero},
             {"RegFac_Total", Tipo::Dinero},
         }},
        // VAT bands of a register record.
        {"RegFacBas",
         Catalogo::Contable,
         {
             {"RegFacBas_Id", Tipo::Clave},
             {"RegFacBas_IdRegFac", Tipo::Id},
             {"RegFacBas_Base", Tipo::Dinero},
             {"RegFacBas_PIva", Tipo::Porcentaje},
             {"RegFacBas_Iva", Tipo::Dinero},
             {"RegFacBas_PRec", Tipo::Porcentaje},
             {"RegFacBas_Rec", Tipo::Dinero},
             {"RegFacBas_PRet", Tipo::Porcentaje},
             {"RegFacBas_Ret", Tipo::Dinero},
         }},
        // Fiscal years; a closed year takes no more entries.
        {"Eje",
         Catalogo::Contable,
         {
             {"Eje_Id", Tipo::Clave},
             {"Eje_Ejercicio", Tipo::Entero},
             {"Eje_FInicio", Tipo::Fecha},
             {"Eje_FFin", Tipo::Fecha},
             {"Eje_Cerrado", Tipo::Booleano},
         }},
    };
}

std::vector<Tabla> todas() {
    std::vector<Tabla> t = tablasEmpresa();
    for (auto&& grupo : {tablasComun(), tablasContables()}) {
        t.insert(t.end(), grupo.begin(), grupo.end());
    }
    return t;
}

// The plain table name of "vkcomun.Emp" or "VKComun.dbo.Emp".
QString nombreSimple(const QString& nombre) {
    const qsizetype punto = nombre.lastIndexOf(QLatin1Char('.'));
    return (punto < 0 ? nombre : nombre.mid(punto + 1)).trimmed();
}

} // namespace

const std::vector<Tabla>& Tablas() {
    static const std::vector<Tabla> tablas = todas();
    return tablas;
}

const std::vector<Indice>& Indices() {
    static const std::vector<Indice> indices{
        // Series and number name one invoice: the numbering relies on it.
        {"ix_fav_serie_numero", "Fav", {"Fav_Serie", "Fav_Numero"}, true},
        {"ix_fav_idcli", "Fav", {"fav_idcli"}},
        {"ix_vfregistro_idfactura", "VfRegistro", {"Vfr_IdFactura"}},
        {"ix_vfenvio_registro", "VfEnvio", {"Vfe_IdRegistro"}, true},
        {"ix_vfenvio_estado", "VfEnvio", {"Vfe_Estado"}},
        {"ix_fav_fecha", "Fav", {"Fav_Fecha"}},
        // The last date of a series, read under its lock for every new invoice.
        {"ix_fav_serie_fecha", "Fav", {"Fav_Serie", "Fav_Fecha"}},
        {"ix_retnf_idfactura", "RetNF", {"RetNF_IdFactura"}},
        // Pending notes by customer, the notes of an invoice, date ranges.
        {"ix_cav_idfactura", "Cav", {"Cav_IdFactura"}},
        {"ix_cav_situa_idcli", "Cav", {"Cav_Situa", "Cav_IdCli"}},
        {"ix_cav_fecha", "Cav", {"Cav_Fecha"}},
        {"ix_cav_serie_numero", "Cav", {"Cav_Serie", "Cav_Numero"}},
        {"ix_lav_idcav", "Lav", {"Lav_IdCav"}},
        {"ix_lav_idcontrata", "Lav", {"lav_idContrata"}},
        {"ix_rec_idfac", "Rec", {"Rec_IdFac"}},
        {"ix_diarec_fecha", "DiaRec", {"DiaRec_Fecha"}},
        {"ix_cli_cod", "Cli", {"Cli_Cod"}},
        {"ix_clidir_cli", "CliDir", {"CLIDIR_CLI"}},
        {"ix_contac_idclipro", "Contac", {"contac_idclipro"}},
        {"ix_art_cod", "Art", {"Art_Cod"}},
        {"ix_artcom_idart", "ArtCom", {"ArtCom_IdArt"}},
        {"ix_fmll_idfml", "Fmll", {"FMLL_IDFML"}},
        {"ix_fcol_id", "Fcol", {"Fcol_id"}},
        {"ix_contrataciones_codcli", "Contrataciones", {"Cont_Codcli"}},
        {"ix_fac_idpro", "Fac", {"Fac_IdPro"}},
        {"ix_fac_fecha", "Fac", {"Fac_Fecha"}},
        {"ix_facl_idfac", "FacL", {"Facl_IdFac"}},
        {"ix_cac_idfac", "Cac", {"cac_idfac"}},
        {"ix_lac_idcac", "Lac", {"lac_idcac"}},
        {"ix_pro_cod", "Pro", {"Pro_Cod"}},
        {"ix_prodir_pro", "ProDir", {"ProDir_Pro"}},
        {"ix_ordalb_idlav", "OrdAlb", {"ora_idlav"}},
        {"ix_pedse_idlav", "PedSe", {"PedSe_IdLav"}},
        {"ix_tfdia_idfav", "TfDia", {"TfDia_IdFav"}},
        {"ix_cenusu_idusu", "Cenusu", {"cenusu_idusu"}},
        // Shared catalog.
        {"ix_tivas_reg_art_fecha", "TIVAS", {"Tiva_Reg", "Tiva_Art", "Tiva_Fecha"}},
        {"ix_emp_catalog", "Emp", {"EMP_CATALOG"}},
        {"ix_pus_idusu_idemp", "Pus", {"Pus_IdUsu", "Pus_IdEmp"}},
        {"ix_prov_cod", "PROV", {"PROV_COD"}},
        {"ix_pais_cod", "PAIS", {"PAIS_COD"}},
        {"ix_situaciones_proceso", "Situaciones", {"Sit_Proceso", "Sit_Idioma", "Sit_Cod"}},
        // Accounting catalog: entries are found by their origin.
        {"ix_asi_origen", "Asi", {"Asi_TOrigen", "Asi_IdOrigen"}},
        {"ix_apu_idasi", "Apu", {"Apu_IdAsi"}},
        {"ix_pcta_cta", "PCta", {"PCta_Cta"}},
        {"ix_nif_doc", "Nif", {"Nif_Doc"}},
        {"ix_regfac_idasi", "RegFac", {"RegFac_IdAsi"}},
        {"ix_regfacbas_idregfac", "RegFacBas", {"RegFacBas_IdRegFac"}},
        {"ix_eje_ejercicio", "Eje", {"Eje_Ejercicio"}},
    };
    return indices;
}

const std::vector<Vista>& Vistas() {
    // The composed text of an address: the street line (type, name, number,
    // block, staircase, floor, door, letter), a line break, and "postal code -
    // town". That is the shape of the invoice's own address, whose readers
    // split the text into lines and the second line at its first '-'. The
    // province and country names live in vkcomun, which a view of the company
    // catalog cannot reach on SQLite, so they are left to the reader.
    // Every part is guarded, so that a NULL part drops out instead of
    // turning the whole text into NULL.
    static const std::vector<Vista> vistas{
        {"qrydireccion", Catalogo::Empresa,
         "SELECT DIR_ID AS dir_ID, "
         "TRIM(COALESCE(TRIM(DIR_SG), '')"
         " || CASE WHEN COALESCE(TRIM(DIR_NOMBRE), '') = '' THEN ''"
         " ELSE ' ' || TRIM(DIR_NOMBRE) END"
         " || CASE WHEN Dir_Numero IS NULL OR Dir_Numero = 0 THEN ''"
         " ELSE ' ' || CAST(Dir_Numero AS TEXT) END"
         " || CASE WHEN COALESCE(TRIM(DIR_BLOQUE), '') = '' THEN ''"
         " ELSE ' ' || TRIM(DIR_BLOQUE) END"
         " || CASE WHEN COALESCE(TRIM(Dir_Escalera), '') = '' THEN ''"
         " ELSE ' ' || TRIM(Dir_Escalera) END"
         " || CASE WHEN COALESCE(TRIM(Dir_Piso), '') = '' THEN ''"
         " ELSE ' ' || TRIM(Dir_Piso) END"
         " || CASE WHEN COALESCE(TRIM(Dir_Puerta), '') = '' THEN ''"
         " ELSE ' ' || TRIM(Dir_Puerta) END"
         " || CASE WHEN COALESCE(TRIM(DIR_LETRA), '') = '' THEN ''"
         " ELSE ' ' || TRIM(DIR_LETRA) END)"
         " || '\r\n'"
         " || CASE WHEN COALESCE(TRIM(DIR_CP), '') = ''"
         " AND COALESCE(TRIM(DIR_POBLACION), '') = '' THEN ''"
         " ELSE COALESCE(TRIM(DIR_CP), '') || ' - ' || COALESCE(TRIM(DIR_POBLACION), '')"
         " END AS direccion "
         "FROM Dir"},
    };
    return vistas;
}

const Tabla* BuscaTabla(const QString& nombre) {
    const QString buscado = nombreSimple(nombre);
    for (const Tabla& t : Tablas()) {
        if (buscado.compare(QLatin1String(t.nombre), Qt::CaseInsensitive) == 0) {
            return &t;
        }
    }
    return nullptr;
}

std::optional<QString> ColumnaClave(const QString& tabla) {
    const Tabla* t = BuscaTabla(tabla);
    if (t == nullptr || t->columnas.empty() || t->columnas.front().tipo != Tipo::Clave) {
        return std::nullopt;
    }
    return QString::fromUtf8(t->columnas.front().nombre);
}

} // namespace vk::esquema
