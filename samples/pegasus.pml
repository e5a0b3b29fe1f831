\TITLE Friends
\NOSIG Y
Ada Abbott <ada.abbott@example.org>
Ben Berg <ben.berg@example.org>
Cara Castell <cara.castell@example.org>
Dario Dunmore <dario.dunmore@example.org>
Elin Ekholm <elin.ekholm@example.org>
Farid Farrow <farid.farrow@example.org>
