#pragma once

namespace CLI {
class App;
}

namespace zu::app {

// Each adds one command of the program, with its options and what it does.
void addElementsCommand(CLI::App& program);
void addGroupsCommand(CLI::App& program);
void addConnectedCommand(CLI::App& program);
void addAttributesCommand(CLI::App& program);
void addSetAttributeCommand(CLI::App& program);
void addCheckCommand(CLI::App& program);
void addSaveCommand(CLI::App& program);
void addPartCommand(CLI::App& program);
void addPartsListCommand(CLI::App& program);
void addPlanCommand(CLI::App& program);
void addLinkCommand(CLI::App& program);
void addTableCommand(CLI::App& program);
void addWindowCommand(CLI::App& program);
void addDemoCommand(CLI::App& program);

} // namespace zu::app
