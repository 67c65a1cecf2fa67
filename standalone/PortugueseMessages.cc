#include "standalone/PortugueseMessages.h"

namespace standalone {

const std::map<int32_t, std::string_view>& PortugueseMessages() {
  // Built once and never destroyed, so that it outlives every caller.
  static const auto* const kMessages = new std::map<int32_t, std::string_view>{
      // Initial load: names and descriptions of the records it makes up when
      // the back office has none.
      {3880026, "Vendedor Geral"},
      {3880033, "Fornecedor Geral"},
      {3880035, "Local de carga"},
      {3880036, "Local de descarga"},
      {3880039, "Intracomunitária"},
      {3880040, "Extracomunitária"},
      {3880041, "Geral"},  // also the root family that the family import hangs on
      {3880045, "Medida %1"},
      {3880107, "Utilizadores"},

      // Initial load: titles of the contact persons of customers and suppliers.
      {3880103, "Tesouraria"},
      {3880104, "Comercial"},
      {3880105, "Gerência"},
      {3880106, "Gerente"},

      // Settings form: window, tabs, groups, labels and buttons.
      {4140000, "Configuração do Integrador Orbiva Lumaro"},
      {4140001, "Configuração"},
      {4140005, "Importação e exportação"},
      {4140006, "Pasta de importação/exportação:"},
      {4140007, "Nº do último ficheiro importado:"},
      {4140008, "Inicialização a partir do Lumaro"},
      {4140010, "Base de dados do Lumaro (SQL Server)"},
      {4140011, "Servidor:"},
      {4140012, "Autenticação:"},
      {4140013, "Utilizador:"},
      {4140014, "Palavra-passe:"},
      {4140015, "Código da empresa:"},
      {4140016, "Ano da empresa:"},
      {4140017, "&Testar ligação"},
      {4140018, "Delegação"},
      {4140019, "Código da delegação:"},
      {4140021, "Indique os limites para a inicialização a partir do Lumaro (vazio copia tudo)"},
      {4140022, "Utilizadores:"},
      {4140023, "Grupos de Clientes:"},
      {4140024, "Zonas:"},
      {4140025, "Vendedores:"},
      {4140026, "Famílias:"},
      {4140027, "Nível das Famílias:"},
      {4140028, "Linhas de Preço:"},
      {3880069, "Segurança integrada do Windows"},
      {3880070, "Autenticação do SQL Server"},
      {2040101, "Seleccione a pasta de importação/exportação"},
      {4130001, "Validação da configuração"},  // read before saving, never shown

      // Settings form: the connection test and the initial load it starts.
      {4140032, "A ligação ao SQL Server do Lumaro foi efectuada com sucesso."},
      {4140033,
       "Não foi possível estabelecer a ligação ao SQL Server do Lumaro. "
       "Verifique a configuração da conexão."},
      {3880108, "A preparar a inicialização a partir do Lumaro..."},
      {3880109, "A carregar %1..."},
      {4140037, "A inicialização a partir do Lumaro terminou."},

      // Import and export runs.
      {4140034, "A pasta de importação/exportação não existe."},
      {4140035,
       "Ocorreu um erro na importação do ficheiro %1. As alterações deste ficheiro foram "
       "anuladas e os ficheiros seguintes não foram importados."},
      {4140039, "%1 de %2"},
      {4140044, "A criar o ficheiro de exportação"},  // the caller appends the file name

      // Import run: titles of the passes over a file.
      {4140038, "Clientes"},
      {4140040, "Artigos"},
      {4140041, "Preços de venda"},
      {4140042, "Códigos de barras"},
      {4140051, "Artigos compostos"},
      {4140052, "Stock por propriedade"},

      // Log of exchanged files.
      {4140049, "Deseja apagar do histórico as linhas seleccionadas?"},

      // Database maintenance: clearing tables.
      {2760002,
       "Esta operação pode demorar alguns minutos e não deve haver outros postos a trabalhar. "
       "Deseja continuar?"},
      {2760005, "A apagar os registos..."},
      {2760006, "A apagar os registos da tabela %1..."},

      // Database maintenance: verification and integrity check.
      {2760003, "Verificação de valores nulos"},
      {2760004, "Verificação de relações"},
      {2760026, "Verificação de índices"},
      {2760030, "A actualizar a tabela %1..."},
      {2760023, "Verificação da integridade da base de dados"},
      {2760027, "A verificar a tabela %1..."},
      {2760028, "Tabela %1: não foi possível ler a coluna %2."},
      {2760029, "A tabela %1 não existe na base de dados."},
  };
  return *kMessages;
}

}  // namespace standalone
