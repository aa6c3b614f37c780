#include "platform/linux/services/LinuxServices.h"

#include "platform/Pasteboards.h"
#include "platform/linux/services/ServiceFolders.h"
#include "platform/linux/services/ServiceRun.h"

#include <QLoggingCategory>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(servicesLog, "tavrel.services")

std::vector<std::string> heldFiles(Pasteboard& pasteboard) {
  std::vector<std::string> files;
  for (const char* type : {pasteboardType::filenames, pasteboardType::pathFinderFilenames}) {
    const auto list = pasteboard.propertyList(type);
    const PropertyList::Array* array = list ? list->array() : nullptr;
    for (const PropertyList& each : array ? *array : PropertyList::Array())
      if (const std::string* path = each.string())
        files.push_back(*path);
    if (!files.empty())
      break;
  }
  return files;
}

std::string onePerLine(const std::vector<std::string>& files) {
  std::string lines;
  for (const std::string& file : files)
    lines += file + "\n";
  return lines;
}

SelectionProgram serviceFor(const std::string& path, Pasteboard& pasteboard) {
  SelectionProgram service;
  service.path = path;
  service.files = heldFiles(pasteboard);
  service.text = service.files.empty() ? pasteboard.string(pasteboardType::string).value_or("")
                                       : onePerLine(service.files);
  return service;
}

bool complain(const std::string& name, const std::string& trouble) {
  qCWarning(servicesLog, "the service \"%s\" gave nothing: %s", name.c_str(), trouble.c_str());
  return false;
}
} // namespace

bool LinuxServices::performService(const std::string& name, Pasteboard& pasteboard) {
  const auto program = findService(surroundings_.folders, name);
  if (!program)
    return complain(name, "there is none of that name");
  SelectionProgram service = serviceFor(*program, pasteboard);
  service.hostApplication = surroundings_.hostApplication();
  const ServiceResult result = runService(service, surroundings_.timeout);
  if (!result.output)
    return complain(name, result.trouble);
  if (result.output->empty())
    return true;
  pasteboard.declareTypes({pasteboardType::string});
  return pasteboard.setString(*result.output, pasteboardType::string);
}

} // namespace tavrel
