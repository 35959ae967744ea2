#pragma once
// Base class of the commands that create tool contexts. Calling the command without -edit or
// -query makes a new context through makeObj() and returns its name; with -edit or -query and a
// context name it calls doEditFlags/doQueryFlags on the command that made that context.
#include <maya/MArgParser.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

class MPxContext;

class MPxContextCommand {
public:
    MPxContextCommand();
    MPxContextCommand(const MPxContextCommand&) = delete;
    MPxContextCommand& operator=(const MPxContextCommand&) = delete;
    virtual ~MPxContextCommand();

    virtual MStatus doEditFlags();
    virtual MStatus doQueryFlags();
    virtual MPxContext* makeObj();
    virtual MStatus appendSyntax();

    MSyntax syntax() const;
    MArgParser* parser();

    // Host access, not part of Maya's interface: never used by plugin code.
    void setParser(const MArgParser& parser) { parser_ = parser; }

private:
    MSyntax syntax_;
    MArgParser parser_;
};
