; All texts of the setup program, in both languages.
!macro TEXT NAME ENGLISH SPANISH
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
  LangString ${NAME} ${LANG_SPANISHINTERNATIONAL} "${SPANISH}"
!macroend
!define T "!insertmacro TEXT"

!macro TEXTS
  ${T} WelcomeNew \
    "Plyweld is a plug-in for 64-bit Finale that merges layers.$\r$\n$\r$\nThis program copies it to Finale's plug-in folder, for your account only. It needs no administrator rights and changes nothing else." \
    "Plyweld es un plugin para Finale de 64 bits que une capas.$\r$\n$\r$\nEste programa lo copia en la carpeta de plugins de Finale, solo para usted. No requiere permisos de administrador ni cambia nada más."
  ${T} WelcomeRepair \
    "Plyweld ${VERSION} is already installed. Its files will be copied again.$\r$\n$\r$\nYour saved settings stay." \
    "Plyweld ${VERSION} ya está instalado. Sus archivos se copiarán de nuevo.$\r$\n$\r$\nSus ajustes guardados se conservan."
  ${T} WelcomeUpgrade \
    "Plyweld $0 is installed. It will be replaced by version ${VERSION}.$\r$\n$\r$\nYour saved settings stay." \
    "Está instalado Plyweld $0. Se sustituirá por la versión ${VERSION}.$\r$\n$\r$\nSus ajustes guardados se conservan."
  ${T} WelcomeOlder \
    "Plyweld $0 is installed, which is newer. It will be replaced by version ${VERSION}.$\r$\n$\r$\nA newer version's saved settings may not work in an older one." \
    "Está instalado Plyweld $0, que es más reciente. Se sustituirá por la versión ${VERSION}.$\r$\n$\r$\nEs posible que los ajustes guardados por una versión más reciente no funcionen en una anterior."
  ${T} FolderTitle "Finale's plug-in folder" "Carpeta de plugins de Finale"
  ${T} FolderSubtitle "Choose the folder Finale loads its plug-ins from." "Elija la carpeta de la que Finale carga sus plugins."
  ${T} FolderText \
    "Plyweld goes into a folder of its own inside this one. The list offers the plug-in folders found on this computer." \
    "Plyweld se copia en una carpeta propia dentro de esta. La lista ofrece las carpetas de plugins encontradas en este equipo."
  ${T} FolderHint \
    "The list is empty if Finale was not found in the usual places. Its plug-in folder is named Plug-ins and is in Finale's own folder." \
    "La lista está vacía si no se encontró Finale donde suele instalarse. Su carpeta de plugins se llama Plug-ins y está dentro de la carpeta de Finale."
  ${T} Browse "Browse..." "Examinar..."
  ${T} NoFolder "Choose Finale's plug-in folder first." "Elija primero la carpeta de plugins de Finale."
  ${T} NoSuchFolder "The folder $PlugIns does not exist." "La carpeta $PlugIns no existe."
  ${T} MakeFolder "The folder $PlugIns does not exist yet. Create it?" "La carpeta $PlugIns aún no existe. ¿Crearla?"
  ${T} Finale32 \
    "Plyweld would not load here: the Finale in $0 is a 32-bit program. Plyweld needs 64-bit Finale." \
    "Plyweld no se cargaría aquí: el Finale de $0 es un programa de 32 bits. Plyweld necesita Finale de 64 bits."
  ${T} Neighbour \
    "Plyweld would not load here: it does not start beside a folder named $R2, and $Home holds one. Choose another folder, or move that one." \
    "Plyweld no se cargaría aquí: no arranca junto a una carpeta llamada $R2, y $Home contiene una. Elija otra carpeta o mueva aquella."
  ${T} NotWritable \
    "You do not have permission to write to $0. Choose another folder, or close this program and start it with a right click and $\"Run as administrator$\"." \
    "No tiene permiso para escribir en $0. Elija otra carpeta, o cierre este programa e inícielo con el botón derecho y «Ejecutar como administrador»."
  ${T} NotWritten "Files could not be written to $Home." "No se pudieron escribir archivos en $Home."
  ${T} EarlierStays \
    "The earlier version in $Earlier could not be removed. Nothing was changed." \
    "No se pudo quitar la versión anterior de $Earlier. No se ha cambiado nada."
  ${T} InUse \
    "Plyweld is in use. Close Finale, then try again.$\r$\n$\r$\n$0\$R2" \
    "Plyweld está en uso. Cierre Finale e inténtelo de nuevo.$\r$\n$\r$\n$0\$R2"
  ${T} FinishTitle "Plyweld is installed" "Plyweld está instalado"
  ${T} FinishText \
    "Restart Finale. Plyweld is in its Plug-ins menu.$\r$\n$\r$\nTry it on a copy of a score first: it has been tested with a stand-in for Finale, not in Finale itself. One Undo takes back a whole run." \
    "Reinicie Finale. Plyweld está en su menú de plugins.$\r$\n$\r$\nPruébelo primero con una copia de una partitura: se ha probado con un sustituto de Finale, no en Finale mismo. Cada ejecución es un solo paso que Deshacer retira."
  ${T} OpenGuide "Open the guide" "Abrir la guía"
  ${T} GuideFile "user-guide.html" "guia-del-usuario.html"
  ${T} RemoveTitle "Remove Plyweld" "Quitar Plyweld"
  ${T} RemoveText \
    "Plyweld will be removed from Finale's plug-in folder. Close Finale first." \
    "Plyweld se quitará de la carpeta de plugins de Finale. Cierre Finale antes."
  ${T} RemoveSettingsToo "Remove my saved &settings too" "Quitar también mis a&justes guardados"
  ${T} RemoveButton "Remove" "Quitar"
!macroend
