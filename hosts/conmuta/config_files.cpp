#include "conmuta/config_files.h"

#include "conmuta/layout_choice.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/errors.h"

namespace conmuta::host {

void WriteConfigs(const std::vector<ConfigFile>& files, Existing existing) {
  for (const ConfigFile& file : files) CheckMayWrite(file.path, existing);
  for (const ConfigFile& file : files) {
    try {
      MakeConfig(file.layout)->GuardarComo(CorePath(file.path));
    } catch (const ConfigError& error) {
      throw UserError(ShownPath(file.path) +
                      ": no se puede escribir: " + Utf8(error.description()));
    }
  }
}

}  // namespace conmuta::host
