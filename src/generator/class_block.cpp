#include "generator/class_block.h"

namespace veldrane {

void WriteClassBlock(const ProjectEmitter& emit, ModuleKind kind)
{
    emit("VERSION 1.0 CLASS", LineClass::Hidden);
    emit("BEGIN", LineClass::Hidden);
    emit("  MultiUse = -1  'True", LineClass::Hidden);
    if (emit.Scope().Project.VBVersion == visual_basic_version::kVisualBasic6) {
        emit("  Persistable = 0  'NotPersistable", LineClass::Hidden);
        emit("  DataBindingBehavior = 0  'vbNone", LineClass::Hidden);
        // The blanks differ: on purpose.
        if (kind == ModuleKind::Wrapper) {
            emit("  DataSourceBehavior  = 0  'vbNone", LineClass::Hidden);
            emit("  MTSTransactionMode  = 0  'NotAnMTSObject", LineClass::Hidden);
        } else {
            emit("  DataSourceBehavior = 0   'vbNone", LineClass::Hidden);
            emit("  MTSTransactionMode = 0   'NotAnMTSObject", LineClass::Hidden);
        }
    }
    emit("END", LineClass::Hidden);
}

} // namespace veldrane
