// resources/identifiers.h - the numbers that resources and code share: templates,
// controls, menus and their commands.
//
// Resource scripts read it too, which know no more of C than #define. A name
// carries the word of its window: a control has its number in that window only.
#pragma once

// Windows, by the number in the table of templates (app/templates.cpp). The first
// two are the library's own.
#define TEMPLATECONFIRM 1
#define TEMPLATEINFO 3
#define TEMPLATEMAIN 256
#define TEMPLATESOLUTIONS 257
#define TEMPLATEGRID 258
#define TEMPLATEGRIDSIZE 259
#define TEMPLATENEWDICT 260
#define TEMPLATEEDIT 261
#define TEMPLATECHECK 262
#define TEMPLATEPANE 263
#define TEMPLATEBAR 264
#define TEMPLATECUSTOM 265
#define TEMPLATECHOICES 266
#define TEMPLATEBARSTOP 267
#define TEMPLATEBARSQUARE 268
#define TEMPLATECUSTOMSQUARE 269

// The system's numbers of the buttons that Return and Escape press in a dialog.
#define DIALOGOK 1
#define DIALOGCANCEL 2

// The question box.
#define QUESTIONNO 0
#define QUESTIONDISCARD 3
#define QUESTIONCANCELOFTWO 4
#define QUESTIONCANCELOFTHREE 5
#define QUESTIONSAVE 6
#define QUESTIONPICTURE 7
#define QUESTIONLINE 8
#define QUESTIONSIGN 9
#define QUESTIONYES 11
#define QUESTIONTEXT 12

// About.
#define INFOWEB 1000
#define INFONAME 1012
#define INFOVERSION 1013
#define INFOAUTHOR 1014
#define INFORIGHTS 1015
#define INFOMAIL 1016
#define INFOHOME 1018

// The three bars of buttons: a Crossword's, the one of a search, a Wordsquare's.
#define BARSOLVE 1001
#define BARANAGRAM 1002
#define BARLETTERS 1007
#define BARMARKLENGTH 1008

#define BARPROGRESS 1020
#define BARSTOP 1021

#define BARNEW 1003
#define BARDELETE 1004
#define BARMAKE 1025
#define BARSQUARESOLVE 1026
#define BARWORD 1027

// Grid Size.
#define SIZEWIDTHARROWS 1007
#define SIZEWIDTH 1008
#define SIZEHEIGHTARROWS 1009
#define SIZEHEIGHT 1010

// Create New Dictionary.
#define NEWDICTNAME 1030

// The editor of a dictionary.
#define EDITADD 1005
#define EDITOK 1012
#define EDITDELETE 1013
#define EDITFILES 1014
#define EDITCOUNT 1015
#define EDITWORD 1017
#define EDITLIST 1018

// Spell Check.
#define CHECKFIELD 1019
#define CHECKBROWSE 1021
#define CHECKDICTIONARY 1022
#define CHECKLIST 1023
#define CHECKADD 1024
#define CHECKCONTINUE 1025
#define CHECKCLOSE 1026

// Customisation: what both kinds of document have, a Crossword's own, a
// Wordsquare's own.
#define CUSTOMSCALE 1007
#define CUSTOMSCALEARROWS 1015
#define CUSTOMGRIDSAMPLE 1009
#define CUSTOMGRIDPICKER 1010
#define CUSTOMTEXTSAMPLE 1014
#define CUSTOMTEXTPICKER 1019
#define CUSTOMBACKSAMPLE 1012
#define CUSTOMBACKPICKER 1020
#define CUSTOMFONTSAMPLE 1013
#define CUSTOMFONTPICKER 1018

#define CUSTOMFILLSAMPLE 1011
#define CUSTOMFILLPICKER 1017
#define CUSTOMCLUESAMPLE 1016
#define CUSTOMCLUEPICKER 1021

#define CUSTOMLENGTH 1008
#define CUSTOMLENGTHARROWS 1016
#define CUSTOMUP 1028
#define CUSTOMDOWN 1029
#define CUSTOMLEFT 1030
#define CUSTOMRIGHT 1031
#define CUSTOMSOLUTIONS 1032
#define CUSTOMUPLEFT 1033
#define CUSTOMDOWNLEFT 1034
#define CUSTOMUPRIGHT 1035
#define CUSTOMDOWNRIGHT 1036

// Choices.
#define CHOICESSAVE 3
#define CHOICESCURSORSAMPLE 1016
#define CHOICESCURSORPICKER 1033
#define CHOICESSELECTEDSAMPLE 1019
#define CHOICESSELECTEDPICKER 1012
#define CHOICESDICTSAMPLE 1017
#define CHOICESDICTPICKER 1011
#define CHOICESSOLSAMPLE 1018
#define CHOICESSOLPICKER 1013
#define CHOICESMAX 1022
#define CHOICESMAXARROWS 1023

// The tags of menus: the bar, those in it, and the one on a list of words with its
// first level.
#define MENUMAIN 1
#define MENUFILE 2
#define MENUWORDS 3
#define MENUGRID 4
#define MENUHELP 5
#define MENUREFLECT 6
#define MENUDICTIONARIES 7
#define MENUWORDLIST 8
#define MENUWORDLISTITEMS 9
#define MENUGRIDTYPE 10

// Positions, from 0: in the bar, in Grid, and of the three entries of Words that
// the menu of dictionaries hangs at.
#define MENUATFILE 0
#define MENUATWORDS 1
#define MENUATGRID 2
#define MENUATHELP 3

#define MENUATGRIDTYPE 0
#define MENUATREFLECT 2

#define MENUATLOAD 1
#define MENUATEDIT 2
#define MENUATDELETE 4

// Commands, and the three entries that get the menu of dictionaries: it stands
// for them.
#define COMMANDNEWGRID 40001
#define COMMANDNEWWORDS 40002
#define COMMANDSAVEAS 40004
#define COMMANDSAVECLUES 40005
#define COMMANDSAVEDEFAULT 40006
#define COMMANDEXIT 40007
#define COMMANDSIZE 40008
#define COMMANDREFLECTVERTICAL 40009
#define COMMANDREFLECTHORIZONTAL 40010
#define COMMANDREFLECTFALLING 40011
#define COMMANDUPPERCASE 40013
#define COMMANDLOWERCASE 40014
#define COMMANDHELP 40015
#define COMMANDABOUT 40016
#define COMMANDSPELLCHECK 40017
#define COMMANDLOADDICT 40018
#define COMMANDEDITDICT 40019
#define COMMANDNEWDICT 40020
#define COMMANDDELETEDICT 40021
#define COMMANDOPEN 40022
#define COMMANDREFLECTRISING 40023
#define COMMANDIMPORT 40024
#define COMMANDEXPORT 40025
#define COMMANDCUSTOMISE 40026
#define COMMANDCHOICES 40027
#define COMMANDSAVE 40028
#define COMMANDCROSSWORD 40030
#define COMMANDWORDSQUARE 40031
