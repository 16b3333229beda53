# What a target that shows something needs: Qt's own sources made, our warnings, and text only where
# it is marked as text.
function(quillery_window_target target)
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_compile_definitions(
    ${target}
    PRIVATE QT_NO_CAST_FROM_ASCII # bytes become text by a conversion that names their encoding
            QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS # "emit" is a function of our signals
            QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()
