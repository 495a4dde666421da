#pragma once

namespace zu::app {

class Command;

// Each adds one command of the program, with its options and its action.
void addElementsCommand(Command& program);
void addGroupsCommand(Command& program);
void addConnectedCommand(Command& program);
void addAttributesCommand(Command& program);
void addSetAttributeCommand(Command& program);
void addCheckCommand(Command& program);
void addQuantitiesCommand(Command& program);
void addCompareCommand(Command& program);
void addReportCommand(Command& program);
void addSaveCommand(Command& program);
void addRunCommandCommand(Command& program);
void addPartCommand(Command& program);
void addPartsListCommand(Command& program);
void addPlanCommand(Command& program);
void addLinkCommand(Command& program);
void addTableCommand(Command& program);
void addWindowCommand(Command& program);
void addDemoCommand(Command& program);

} // namespace zu::app
