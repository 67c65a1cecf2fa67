#ifndef LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_
#define LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_

namespace lumaro {

// The load of the POS's tables from the back office. For now it holds the
// step that the import of items needs too: the tax classes.
class BSOUpgBrevantaLumaroTables {
 public:
  // Fills the run dictionary with the host's tax class of each of the back
  // office's tax types ("TaxableGroupIDTipoIva|<type>"), of each rate
  // ("TaxableGroupIDPorIva|<rate>") and the rate of each type
  // ("TaxRate_TipoIva|<type>"), from the IVA rows of TaxTable for the
  // host's country and region. A failure is logged and the step goes on.
  void Load_Taxes();
};

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_
